#include "ui/main/alt_key_watcher.h"

#include <QKeyEvent>

namespace orvane {

void AltKeyWatcher::setWindow(QQuickWindow* window) {
  if (window_ == window) return;
  if (window_) window_->removeEventFilter(this);
  window_ = window;
  if (window_) window_->installEventFilter(this);
  Q_EMIT windowChanged();
}

bool AltKeyWatcher::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::KeyPress:
      isAlone_ = static_cast<QKeyEvent*>(event)->key() == Qt::Key_Alt;
      break;
    case QEvent::KeyRelease:
      if (isAlone_ && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Alt) {
        isAlone_ = false;
        Q_EMIT pressedAlone();
      }
      break;
    case QEvent::MouseButtonPress:
    case QEvent::FocusOut:
      isAlone_ = false;
      break;
    default:
      break;
  }
  return QObject::eventFilter(watched, event);
}

}  // namespace orvane
