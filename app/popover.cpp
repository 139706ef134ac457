#include "app/popover.h"

#include <QtGui/QCursor>
#include <QtGui/QGuiApplication>
#include <QtGui/QScreen>
#include <QtQuick/QQuickItem>
#include <utility>

#include "app/content_size.h"
#include "platform/linux/x11/x11_window_hints.h"

namespace orvane {
namespace {

// The grab fails while the window isn't on the screen yet or the panel still holds the mouse.
constexpr int grabRetryMilliseconds = 40;
// From the press on a panel that took the focus away to the click the panel makes of it.
constexpr int sameClickMilliseconds = 400;

bool isX11() {
  return QGuiApplication::platformName() == QLatin1String("xcb");
}

}  // namespace

StatusPopover::StatusPopover(Views& views) : views_(views) {
  cleanUp_.setSingleShot(true);
  connect(&cleanUp_, &QTimer::timeout, this, [this] { closed_.reset(); });
  grabRetry_.setSingleShot(true);
  grabRetry_.setInterval(grabRetryMilliseconds);
  connect(&grabRetry_, &QTimer::timeout, this, &StatusPopover::holdMouse);
  focusCheck_.setSingleShot(true);
  connect(&focusCheck_, &QTimer::timeout, this, &StatusPopover::focusChanged);
}

// So that the window's end is no event for the members that are gone by then.
StatusPopover::~StatusPopover() {
  close();
}

bool StatusPopover::isShown() const {
  return view_ || (sinceDismissal_.isValid() && !sinceDismissal_.hasExpired(sameClickMilliseconds));
}

void StatusPopover::performClose() {
  sinceDismissal_.invalidate();
  close();
}

void StatusPopover::show(ScreenPoint item, PopoverClosures closures) {
  close();
  const QList<ScreenArea> areas = screenAreas();
  if (areas.isEmpty()) return;
  views_.setTranslucentWindows(blendsTranslucentWindows());
  view_ = views_.makePopoverView(std::move(closures));
  const auto pointer = isX11() ? std::optional(QCursor::pos()) : std::nullopt;
  item_ = statusItemLocation(pointer, item, areas);
  screen_ = screenAt(item_, areas);
  wasActive_ = false;
  pressedOutside_ = false;

  view_->setTitle(QStringLiteral("Orvane"));
  view_->setFlags(Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint |
                  Qt::NoDropShadowWindowHint);
  if (QScreen* screen = QGuiApplication::screenAt(item_)) view_->setScreen(screen);
  // A tiling compositor would put a window that can have another size among its tiles.
  if (!isX11()) keepContentSize(*view_);
  place();
  skipTaskbar(*view_);
  connectView();
  view_->show();
  view_->requestActivate();
}

void StatusPopover::connectView() {
  view_->installEventFilter(this);
  connect(view_.get(), &QWindow::heightChanged, this, &StatusPopover::place);
  connect(view_.get(), &QWindow::activeChanged, this, [this] { focusCheck_.start(0); });
  // The item may be elsewhere now, and the popover off the screen.
  connect(view_->screen(), &QScreen::geometryChanged, view_.get(), [this] { performClose(); });
  connect(qGuiApp, &QGuiApplication::screenRemoved, view_.get(), [this] { performClose(); });
  if (QQuickItem* root = view_->rootObject()) {
    connect(root, SIGNAL(closeRequested()), this, SLOT(close()));
    connect(root, SIGNAL(menuOpenChanged()), this, SLOT(menuChanged()));
  }
}

void StatusPopover::place() {
  if (!view_) return;
  const QRect rectangle = popoverRectangle(item_, view_->size(), screen_);
  if (view_->position() != rectangle.topLeft()) view_->setPosition(rectangle.topLeft());
}

void StatusPopover::close() {
  if (!view_) return;
  grabRetry_.stop();
  focusCheck_.stop();
  view_->removeEventFilter(this);
  view_->disconnect(this);
  view_->hide();
  // The view may be in the middle of the event that closes it.
  closed_ = std::move(view_);
  cleanUp_.start(0);
}

// Where the mouse is held (X11) no click on the item takes the focus away.
void StatusPopover::dismiss() {
  if (!isX11()) sinceDismissal_.start();
  close();
}

bool StatusPopover::menuIsOpen() const {
  const QQuickItem* root = view_ ? view_->rootObject() : nullptr;
  return root != nullptr && root->property("menuOpen").toBool();
}

void StatusPopover::menuChanged() {
  if (!view_ || menuIsOpen()) return;
  // A menu that was closed by its user has the focus still; without it another program took it.
  if (isX11() && QGuiApplication::focusWindow() == nullptr) return dismiss();
  view_->requestActivate();
  grabRetry_.start();
}

// Later than the change itself: between two of our own windows the focus is nowhere for a moment.
void StatusPopover::focusChanged() {
  if (!view_) return;
  if (view_->isActive()) {
    wasActive_ = true;
  } else if (wasActive_ && !menuIsOpen()) {
    dismiss();
  }
}

void StatusPopover::holdMouse() {
  if (!isX11() || !view_ || !view_->isExposed() || menuIsOpen()) return;
  if (!view_->setMouseGrabEnabled(true)) grabRetry_.start();
}

bool StatusPopover::eventFilter(QObject* watched, QEvent* event) {
  if (watched != view_.get()) return false;
  if (event->type() == QEvent::Expose) holdMouse();
  if (event->type() == QEvent::Close) close();
  return event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonRelease
             ? closesOutside(*static_cast<QMouseEvent*>(event))
             : false;
}

// The mouse is held until the button is up: a panel that got the release alone would make a click
// of it and open the popover again.
bool StatusPopover::closesOutside(const QMouseEvent& event) {
  if (event.type() == QEvent::MouseButtonPress)
    pressedOutside_ =
        pressedOutside_ || !QRectF({}, QSizeF(view_->size())).contains(event.position());
  if (!pressedOutside_) return false;
  if (event.buttons() == Qt::NoButton) close();
  return true;
}

}  // namespace orvane
