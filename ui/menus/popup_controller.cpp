#include "ui/menus/popup_controller.h"

#include <QGuiApplication>
#include <QMouseEvent>
#include <QScreen>
#include <cmath>

#include "ui/menus/popup_placement.h"

namespace orvane {

namespace {

// A grab fails while the window isn't on the screen yet or somebody else lets go of theirs.
constexpr int retryMilliseconds = 40;

bool needsGrab() {
  return QGuiApplication::platformName() == QStringLiteral("xcb");
}

/// A popup that is open keeps its place on Wayland, wherever one would like to move it.
bool staysPut(const QWindow& popup) {
  return popup.isVisible() && QGuiApplication::platformName().startsWith(QStringLiteral("wayland"));
}

QRect globalRect(const QQuickItem& item) {
  return QRectF(item.mapToGlobal({0, 0}), item.size()).toAlignedRect();
}

}  // namespace

void PopupController::setWindow(QQuickWindow* window) {
  if (window_ == window) return;
  window_ = window;
  // Ahead of whoever else takes keys in the whole program.
  if (window_) QCoreApplication::instance()->installEventFilter(this);
  watchOwner();
  Q_EMIT windowChanged();
}

void PopupController::setAnchor(QQuickItem* anchor) {
  if (anchor_ == anchor) return;
  anchor_ = anchor;
  watchOwner();
  Q_EMIT anchorChanged();
}

void PopupController::watchOwner() {
  if (!window_ || !anchor_ || anchor_->window() == nullptr) return;
  owner_ = anchor_->window();
  window_->setTransientParent(owner_);
}

void PopupController::place(double width, double height, Edge edge, double gap) {
  if (!window_ || !anchor_ || anchor_->window() == nullptr) return;
  const QScreen* screen = anchor_->window()->screen();
  const int space = static_cast<int>(std::lround(gap));
  const QRect anchor =
      globalRect(*anchor_).adjusted(edge == Trailing ? -space : 0, edge == Below ? -space : 0,
                                    edge == Trailing ? space : 0, edge == Below ? space : 0);
  const QSize size(static_cast<int>(std::ceil(width)), static_cast<int>(std::ceil(height)));
  const QRect placed = placePopup(anchor, size, screen->availableGeometry(),
                                  edge == Below ? PopupEdge::below : PopupEdge::trailing);
  window_->setScreen(anchor_->window()->screen());
  window_->setGeometry({staysPut(*window_) ? window_->position() : placed.topLeft(), size});
}

bool PopupController::isAnchorInSight() const {
  if (!anchor_) return false;
  const QPointF middle(anchor_->width() / 2, anchor_->height() / 2);
  for (const QQuickItem* item = anchor_; item != nullptr; item = item->parentItem()) {
    if (item->clip() && !item->contains(item->mapFromItem(anchor_, middle))) return false;
  }
  return true;
}

int PopupController::next(const QList<bool>& choosable, int current, int direction) const {
  return nextChoice(choosable, current, direction);
}

bool PopupController::ownerEvent(QEvent& event) {
  if (!window_ || !window_->isVisible()) return false;
  switch (event.type()) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::ShortcutOverride:
      // Some compositors leave the keyboard here.
      if (!takesInput_) return false;
      QCoreApplication::sendEvent(window_, &event);
      return true;
    case QEvent::MouseMove:
      Q_EMIT pointerMovedOutside(static_cast<QMouseEvent&>(event).globalPosition());
      return false;
    case QEvent::FocusOut:
      if (isLeft()) Q_EMIT dismissed();
      return false;
    case QEvent::Hide:
    case QEvent::Close:
      Q_EMIT dismissed();
      return false;
    default:
      return false;
  }
}

// The toolkit hands keys on to what is in a window only if the window has the keyboard.
bool PopupController::deliverKey(QEvent& event) {
  QQuickItem* item = window_->contentItem();
  while (QQuickItem* inner = item->scopedFocusItem()) item = inner;
  for (; item != nullptr; item = item->parentItem()) {
    event.accept();
    QCoreApplication::sendEvent(item, &event);
    if (event.isAccepted()) return true;
  }
  return false;
}

bool PopupController::eventFilter(QObject* watched, QEvent* event) {
  if (watched == owner_) return ownerEvent(*event);
  if (watched != window_) return false;
  switch (event->type()) {
    case QEvent::Expose:
      if (takesInput_ && needsGrab() && window_->isExposed()) hold();
      return false;
    case QEvent::ShortcutOverride:
      // Keys belong to the popup alone: no shortcut of the window below may take one.
      event->accept();
      return true;
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
      return window_->activeFocusItem() == nullptr && deliverKey(*event);
    case QEvent::FocusOut:
      // While it holds the keyboard the window below has none to lose.
      if (needsGrab() && window_->isVisible() && isLeft()) Q_EMIT dismissed();
      return false;
    case QEvent::Hide:
      retry_.stop();
      return false;
    case QEvent::MouseButtonPress:
      if (isInside(*static_cast<QMouseEvent*>(event))) return false;
      Q_EMIT dismissed();
      return true;
    case QEvent::MouseMove: {
      const auto& move = *static_cast<QMouseEvent*>(event);
      if (!isInside(move)) Q_EMIT pointerMovedOutside(move.globalPosition());
      return false;
    }
    default:
      return false;
  }
}

bool PopupController::isLeft() const {
  const QWindow* focused = QGuiApplication::focusWindow();
  return focused != window_ && focused != owner_;
}

bool PopupController::isInside(const QMouseEvent& event) const {
  return QRectF(QPointF(), QSizeF(window_->size())).contains(event.position());
}

void PopupController::timerEvent(QTimerEvent* event) {
  if (event->timerId() == retry_.timerId()) hold();
}

void PopupController::hold() {
  if (!window_ || !window_->isVisible()) {
    retry_.stop();
    return;
  }
  const bool mouse = window_->setMouseGrabEnabled(true);
  const bool keyboard = window_->setKeyboardGrabEnabled(true);
  if (mouse && keyboard) {
    retry_.stop();
  } else if (!retry_.isActive()) {
    retry_.start(retryMilliseconds, this);
  }
}

}  // namespace orvane
