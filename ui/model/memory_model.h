#pragma once

#include <QtQml/qqmlregistration.h>
#include <QList>
#include <QObject>
#include <QString>

#include <memory>

#include "core/memory_manager.h"
#include "ui/model/process_history.h"
#include "ui/model/process_list_model.h"
#include "ui/model/process_record.h"

namespace orvane {

/// What views bind to: the manager's state as properties, and its operations.
///
/// The manager announces changes before it makes them; this collects what one turn of the event
/// loop announces and lets views read again once, after it. Byte counts are whole numbers in a
/// double; without a sample they are 0 and `hasSample` is false.
class MemoryModel : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("made by the program")

  Q_PROPERTY(bool hasSample READ hasSample NOTIFY changed)
  Q_PROPERTY(double freeBytes READ freeBytes NOTIFY changed)
  Q_PROPERTY(double activeBytes READ activeBytes NOTIFY changed)
  Q_PROPERTY(double inactiveBytes READ inactiveBytes NOTIFY changed)
  Q_PROPERTY(double wiredBytes READ wiredBytes NOTIFY changed)
  Q_PROPERTY(double compressedBytes READ compressedBytes NOTIFY changed)
  Q_PROPERTY(double usedBytes READ usedBytes NOTIFY changed)
  Q_PROPERTY(double availableBytes READ availableBytes NOTIFY changed)
  Q_PROPERTY(double totalBytes READ totalBytes NOTIFY changed)
  /// 0 to 100; 0 when there is no memory to use.
  Q_PROPERTY(double usagePercentage READ usagePercentage NOTIFY changed)
  Q_PROPERTY(bool isProcessing READ isProcessing NOTIFY changed)
  /// "9.0 GB / 16.0 GB"
  Q_PROPERTY(QString usedOfTotalText READ usedOfTotalText NOTIFY changed)
  /// "56%", truncated
  Q_PROPERTY(QString wholePercentText READ wholePercentText NOTIFY changed)
  /// "56.2%"
  Q_PROPERTY(QString percentText READ percentText NOTIFY changed)
  /// Used memory in percent at each sample, oldest first.
  Q_PROPERTY(QList<double> usageHistory READ usageHistory NOTIFY changed)

  Q_PROPERTY(orvane::ProcessListModel* processes READ processes CONSTANT)
  Q_PROPERTY(SortMode sortMode READ sortMode WRITE setSortMode NOTIFY changed)
  Q_PROPERTY(bool hasSelection READ hasSelection NOTIFY changed)
  /// No valid record without a selection.
  Q_PROPERTY(orvane::ProcessRecord selection READ selection WRITE setSelection NOTIFY changed)
  /// "Top 3 apps use 41.2% of memory"; empty without applications.
  Q_PROPERTY(QString topConsumersText READ topConsumersText NOTIFY changed)

 public:
  enum SortMode {
    CurrentMemory = static_cast<int>(ProcessSortMode::current),
    AverageMemory = static_cast<int>(ProcessSortMode::average),
    PeakMemory = static_cast<int>(ProcessSortMode::peak)
  };
  Q_ENUM(SortMode)

  explicit MemoryModel(std::shared_ptr<MemoryManager> manager);

  [[nodiscard]] bool hasSample() const { return manager_->currentStats().has_value(); }
  [[nodiscard]] double freeBytes() const { return bytes(sample().free); }
  [[nodiscard]] double activeBytes() const { return bytes(sample().active); }
  [[nodiscard]] double inactiveBytes() const { return bytes(sample().inactive); }
  [[nodiscard]] double wiredBytes() const { return bytes(sample().wired); }
  [[nodiscard]] double compressedBytes() const { return bytes(sample().compressed); }
  [[nodiscard]] double usedBytes() const { return bytes(sample().usedMemory()); }
  [[nodiscard]] double availableBytes() const { return bytes(sample().availableMemory()); }
  [[nodiscard]] double totalBytes() const { return bytes(sample().totalMemory()); }
  [[nodiscard]] double usagePercentage() const;
  [[nodiscard]] bool isProcessing() const { return manager_->isProcessing(); }
  [[nodiscard]] QString usedOfTotalText() const;
  [[nodiscard]] QString wholePercentText() const;
  [[nodiscard]] QString percentText() const;
  [[nodiscard]] QList<double> usageHistory() const;

  [[nodiscard]] ProcessListModel* processes() { return &processes_; }
  [[nodiscard]] SortMode sortMode() const {
    return static_cast<SortMode>(manager_->processSortMode());
  }
  void setSortMode(SortMode mode) {
    manager_->setProcessSortMode(static_cast<ProcessSortMode>(mode));
  }
  [[nodiscard]] bool hasSelection() const { return manager_->selectedProcess().has_value(); }
  [[nodiscard]] ProcessRecord selection() const;
  void setSelection(const ProcessRecord& record);
  [[nodiscard]] QString topConsumersText() const;

  Q_INVOKABLE void clearSelection() { setSelection({}); }
  Q_INVOKABLE void boostMemory() { manager_->boostMemory(); }
  Q_INVOKABLE void updateTopProcesses() { manager_->updateTopProcesses(); }
  /// Ends the application of the record at once; nothing for no record.
  Q_INVOKABLE void killProcess(const orvane::ProcessRecord& record);

  /// As it is now: call it again after `changed`. Empty when the application has no history.
  Q_INVOKABLE [[nodiscard]] orvane::ProcessHistory processHistory(int pid) const;

  /// Lets views read again at once instead of at the end of this turn.
  void refresh();

 Q_SIGNALS:
  void changed();

 private:
  [[nodiscard]] MemoryStats sample() const {
    return manager_->currentStats().value_or(MemoryStats{});
  }
  [[nodiscard]] static double bytes(std::uint64_t count) { return static_cast<double>(count); }
  void scheduleRefresh();

  std::shared_ptr<MemoryManager> manager_;
  ProcessListModel processes_;
  bool refreshPending_ = false;
  Observable::Subscription managerChanges_;
  Observable::Subscription historyChanges_;
};

}  // namespace orvane
