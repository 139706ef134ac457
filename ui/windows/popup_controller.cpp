#include "ui/windows/popup_controller.h"

#include <QCursor>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QScreen>
#include <QStyleHints>
#include <cmath>

#include "ui/menus/menu_choice.h"
#include "ui/style/painted_length.h"

namespace orvane {

namespace {

// A grab fails while the window isn't on the screen yet or somebody else lets go of theirs.
constexpr int retryMilliseconds = 40;

bool needsGrab() {
  return QGuiApplication::platformName() == QStringLiteral("xcb");
}

Qt::WindowFlags popupFlags(bool takesInput) {
  if (!takesInput) {
    return Qt::ToolTip | Qt::FramelessWindowHint | Qt::WindowDoesNotAcceptFocus |
           Qt::WindowTransparentForInput;
  }
  // Assistive technology doesn't see a Qt::Popup on X11.
  const Qt::WindowFlags type =
      needsGrab() ? Qt::Tool | Qt::BypassWindowManagerHint | Qt::WindowStaysOnTopHint
                  : Qt::WindowFlags(Qt::Popup);
  return type | Qt::FramelessWindowHint | Qt::NoDropShadowWindowHint;
}

/// Whether the window can't be moved: on Wayland a popup keeps its place while it is open.
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
  // The application's latest event filter is the first: this one comes before
  // ProcessKeyNavigation's.
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
  const double ratio = screen->devicePixelRatio();
  const QSize size(paintedLength(width, ratio), paintedLength(height, ratio));
  const QRect placed = placePopup(anchor, size, screen->availableGeometry(),
                                  edge == Below ? PopupEdge::below : PopupEdge::trailing);
  if (!window_->isVisible()) window_->setFlags(popupFlags(takesInput_));
  window_->setScreen(anchor_->window()->screen());
  const QRect whole = placed.marginsAdded(margins());
  window_->setGeometry({staysPut(*window_) ? window_->position() : whole.topLeft(), whole.size()});
}

void PopupController::placeAtStatusItem(QPoint reported, const QVariantList& panels) {
  isPopover_ = true;
  QList<ScreenArea> areas = screenAreas();
  if (!window_ || areas.isEmpty()) return;
  for (ScreenArea& area : areas) {
    for (const QVariant& panel : panels) area = withoutPanel(area, panel.toRect());
  }
  const auto pointer = needsGrab() ? std::optional(QCursor::pos()) : std::nullopt;
  statusItem_ = statusItemLocation(pointer, {reported.x(), reported.y()}, areas);
  screen_ = screenAt(statusItem_, areas);
  if (QScreen* screen = QGuiApplication::screenAt(statusItem_)) window_->setScreen(screen);
  auto follow = [this, before = std::optional<QPoint>()]() mutable {
    const QSize size = window_->size().shrunkBy(margins());
    const QRect place = popoverRectangle(statusItem_, size, screen_, before);
    before = place.topLeft();
    const QRect whole = place.marginsAdded(margins());
    if (window_->position() != whole.topLeft()) window_->setPosition(whole.topLeft());
    if (needsGrab()) return;
    // A tiling compositor would put a window that can have another size among its tiles.
    window_->setMaximumSize(whole.size());
    window_->setMinimumSize(whole.size());
  };
  follow();
  connect(window_, &QWindow::heightChanged, this, follow);
  // The check comes later: between two of our own windows no window has the focus for a moment.
  connect(window_, &QWindow::activeChanged, this, [this] { focusCheck_.start(0, this); });
  // The item may be elsewhere now, and the window off the screen.
  const auto close = [this] { Q_EMIT dismissed(false); };
  connect(window_->screen(), &QScreen::geometryChanged, this, close);
  connect(qGuiApp, &QGuiApplication::screenRemoved, this, close);
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

void PopupController::setHasMenuOpen(bool isOpen) {
  if (hasMenuOpen_ == isOpen) return;
  hasMenuOpen_ = isOpen;
  Q_EMIT hasMenuOpenChanged();
  if (hasMenuOpen_ || !window_ || !window_->isVisible()) return;
  // No window of ours has the focus: another program took it, and that closed the menu.
  if (needsGrab() && QGuiApplication::focusWindow() == nullptr) {
    Q_EMIT dismissed(true);
    return;
  }
  window_->requestActivate();
  retry_.start(retryMilliseconds, this);
}

void PopupController::checkFocus() {
  focusCheck_.stop();
  if (!window_ || !window_->isVisible()) return;
  if (window_->isActive()) {
    wasActive_ = true;
  } else if (wasActive_ && !hasMenuOpen_) {
    Q_EMIT dismissed(true);
  }
}

bool PopupController::ownerEvent(QEvent& event) {
  if (!window_ || !window_->isVisible()) return false;
  switch (event.type()) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::ShortcutOverride:
      // Some compositors leave the keyboard here.
      if (!isPopup()) return false;
      QCoreApplication::sendEvent(window_, &event);
      return true;
    case QEvent::MouseMove:
      Q_EMIT pointerMovedOutside(static_cast<QMouseEvent&>(event).globalPosition());
      [[fallthrough]];
    case QEvent::MouseButtonRelease:
      followDrag(static_cast<QMouseEvent&>(event));
      return false;
    case QEvent::FocusOut:
      if (isLeft()) Q_EMIT dismissed(true);
      return false;
    case QEvent::Hide:
    case QEvent::Close:
      Q_EMIT dismissed(false);
      return false;
    default:
      return false;
  }
}

// QQuickWindow hands keys to its items only while it is the active window.
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

bool PopupController::popupEvent(QEvent& event) {
  switch (event.type()) {
    case QEvent::ShortcutOverride:
      // Keys belong to the popup alone: no shortcut of the window below may take one.
      event.accept();
      return true;
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
      return window_->activeFocusItem() == nullptr && deliverKey(event);
    case QEvent::FocusOut:
      // While it holds the keyboard the window below has none to lose.
      if (needsGrab() && window_->isVisible() && isLeft()) Q_EMIT dismissed(true);
      return false;
    default:
      return false;
  }
}

bool PopupController::eventFilter(QObject* watched, QEvent* event) {
  if (watched == owner_) return ownerEvent(*event);
  if (watched != window_) return false;
  switch (event->type()) {
    case QEvent::Expose:
      hold();
      return false;
    case QEvent::Hide:
      retry_.stop();
      return false;
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
      followDrag(*static_cast<QMouseEvent*>(event));
      return closesOutside(*static_cast<QMouseEvent*>(event));
    case QEvent::MouseMove: {
      const auto& move = *static_cast<QMouseEvent*>(event);
      followDrag(move);
      if (!isInside(move)) Q_EMIT pointerMovedOutside(move.globalPosition());
      return false;
    }
    default:
      return isPopup() && popupEvent(*event);
  }
}

void PopupController::followDrag(const QMouseEvent& event) {
  if (!isPopup() || isDragOver_) return;
  const QPointF place = event.globalPosition();
  isDragOver_ = event.type() != QEvent::MouseMove;
  if (event.type() == QEvent::MouseMove && event.buttons() != Qt::NoButton) {
    dragFrom_ = dragFrom_.value_or(place);
    Q_EMIT dragged(place);
  } else if (event.type() == QEvent::MouseButtonRelease && dragFrom_ &&
             (place - *dragFrom_).manhattanLength() >=
                 QGuiApplication::styleHints()->startDragDistance()) {
    Q_EMIT dropped(place);
  }
}

// The popover holds the mouse until the button is up: a panel that got the release alone would make
// a click of it and open the popover again.
bool PopupController::closesOutside(const QMouseEvent& event) {
  const bool press = event.type() == QEvent::MouseButtonPress;
  pressedOutside_ = pressedOutside_ || (press && !isInside(event));
  if (!pressedOutside_) return false;
  if (isPopup() || event.buttons() == Qt::NoButton) Q_EMIT dismissed(false);
  return true;
}

bool PopupController::isLeft() const {
  const QWindow* focused = QGuiApplication::focusWindow();
  return focused != window_ && focused != owner_;
}

QMargins PopupController::margins() const {
  const int all = static_cast<int>(std::lround(margin_));
  return {all, all, all, all};
}

bool PopupController::isInside(const QMouseEvent& event) const {
  const QRect whole(QPoint(), window_->size());
  return QRectF(whole.marginsRemoved(margins())).contains(event.position());
}

void PopupController::timerEvent(QTimerEvent* event) {
  if (event->timerId() == retry_.timerId()) hold();
  if (event->timerId() == focusCheck_.timerId()) checkFocus();
}

void PopupController::hold() {
  retry_.stop();
  if (!takesInput_ || hasMenuOpen_ || !needsGrab() || !window_ || !window_->isExposed()) return;
  const bool mouse = window_->setMouseGrabEnabled(true);
  const bool keyboard = !isPopup() || window_->setKeyboardGrabEnabled(true);
  // What was pressed below never hears of the release.
  const auto* owner = qobject_cast<QQuickWindow*>(owner_);
  if (QQuickItem* pressed = mouse && owner != nullptr ? owner->mouseGrabberItem() : nullptr)
    pressed->ungrabMouse();
  if (!mouse || !keyboard) retry_.start(retryMilliseconds, this);
}

}  // namespace orvane
