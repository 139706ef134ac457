#pragma once

#include <QtQml/qqmlregistration.h>
#include <QPointer>
#include <QQuickItem>

#include "ui/model/memory_model.h"

namespace orvane {

/// The row to select from `current` (-1 = none) in `direction` (1 or -1): the first one when none
/// is, otherwise the next one without going round; -1 in an empty list.
[[nodiscard]] int neighbourRow(int count, int current, int direction);

/// Moves the selection with Up and Down, whichever of the program's windows has the keyboard.
///
/// Active exactly while the item is visible in a window that is on the screen. While active it
/// takes both keys from every window, also when nothing can be selected. A window with the property
/// `ownsArrowKeys` set, such as an open menu, keeps them: its own choice moves.
class ProcessKeyNavigation : public QQuickItem {
  Q_OBJECT
  QML_ELEMENT

  Q_PROPERTY(orvane::MemoryModel* model MEMBER model_ NOTIFY modelChanged)

 public:
  using QQuickItem::QQuickItem;
  ~ProcessKeyNavigation() override;

 Q_SIGNALS:
  void modelChanged();
  /// After each of the keys, when something is selected: its row, also when it stays the same.
  void moved(int row);

 protected:
  void itemChange(ItemChange change, const ItemChangeData& data) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void setActive(bool active);
  void follow(QQuickWindow* window);
  void updateActive(const QQuickWindow* window);
  void select(int direction);

  QPointer<MemoryModel> model_;
  QMetaObject::Connection windowChanges_;
  bool active_ = false;
};

}  // namespace orvane
