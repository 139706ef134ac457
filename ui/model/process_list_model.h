#pragma once

#include <QtQml/qqmlregistration.h>
#include <QAbstractListModel>

#include <vector>

#include "core/memory_manager.h"
#include "ui/model/process_record.h"

namespace orvane {

/// The largest applications in the model's order. A row belongs to a process: it moves with it,
/// so what a view keeps for a row (an open popover, hover) stays with that application.
class ProcessListModel : public QAbstractListModel {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("owned by the model")
  Q_PROPERTY(int count READ count NOTIFY countChanged)

 public:
  /// `record` is a ProcessRecord; `memoryText` and `isLarge` go by the figure of the sort mode.
  enum Role { recordRole = Qt::UserRole + 1, memoryTextRole, isLargeRole, isSelectedRole };

  /// MB above which a figure is shown as large.
  static constexpr double largeFigure = 500;

  using QAbstractListModel::QAbstractListModel;

  [[nodiscard]] int count() const { return static_cast<int>(rows_.size()); }
  [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
  [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

  /// The record of a row; none for a row that isn't there.
  Q_INVOKABLE [[nodiscard]] orvane::ProcessRecord record(int row) const;
  /// The row of a record by its id; -1 when the list doesn't hold it.
  Q_INVOKABLE [[nodiscard]] int rowOf(const orvane::ProcessRecord& record) const;

  /// Takes over the manager's list, selection and sort mode.
  void refresh(const MemoryManager& manager);

 Q_SIGNALS:
  void countChanged();

 private:
  struct Row {
    ProcessRecord record;
    double figure = 0;  ///< MB
    bool selected = false;
  };

  void matchOrder(const std::vector<ProcessInfo>& processes);
  void placeRow(int row, const ProcessInfo& process);

  std::vector<Row> rows_;
};

}  // namespace orvane
