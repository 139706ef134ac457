#include "ui/process/process_key_navigation.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QQuickWindow>
#include <algorithm>

namespace orvane {

int neighbourRow(int count, int current, int direction) {
  if (count == 0) return -1;
  return current < 0 ? 0 : std::clamp(current + direction, 0, count - 1);
}

ProcessKeyNavigation::~ProcessKeyNavigation() {
  setActive(false);
}

void ProcessKeyNavigation::setActive(bool active) {
  if (active_ == active) return;
  active_ = active;
  if (auto* application = QCoreApplication::instance()) {
    if (active) {
      application->installEventFilter(this);
    } else {
      application->removeEventFilter(this);
    }
  }
}

void ProcessKeyNavigation::itemChange(ItemChange change, const ItemChangeData& data) {
  QQuickItem::itemChange(change, data);
  if (change == ItemSceneChange) follow(data.window);
  if (change == ItemVisibleHasChanged) updateActive(window());
}

void ProcessKeyNavigation::follow(QQuickWindow* window) {
  disconnect(windowChanges_);
  if (window != nullptr) {
    windowChanges_ = connect(window, &QWindow::visibilityChanged, this,
                             [this, window] { updateActive(window); });
  }
  updateActive(window);
}

void ProcessKeyNavigation::updateActive(const QQuickWindow* window) {
  const auto visibility = window == nullptr ? QWindow::Hidden : window->visibility();
  setActive(isVisible() && visibility != QWindow::Hidden && visibility != QWindow::Minimized);
}

bool ProcessKeyNavigation::eventFilter(QObject* watched, QEvent* event) {
  // The window gets the event before any of its items.
  if (event->type() != QEvent::KeyPress || !watched->isWindowType()) return false;
  const int key = static_cast<QKeyEvent*>(event)->key();
  if (key != Qt::Key_Up && key != Qt::Key_Down) return false;
  const auto owns = [](const QObject* object) {
    return object != nullptr && object->property("ownsArrowKeys").toBool();
  };
  const auto* window = qobject_cast<QQuickWindow*>(watched);
  if (owns(watched) || (window != nullptr && owns(window->activeFocusItem()))) return false;
  select(key == Qt::Key_Up ? -1 : 1);
  event->accept();
  return true;
}

void ProcessKeyNavigation::select(int direction) {
  if (!model_) return;
  model_->refresh();  // the list as it is now, not as it was shown last
  ProcessListModel& list = *model_->processes();
  const int row = neighbourRow(list.count(), list.rowOf(model_->selection()), direction);
  if (row < 0) return;
  model_->setSelection(list.record(row));
  model_->refresh();
  Q_EMIT moved(row);
}

}  // namespace orvane
