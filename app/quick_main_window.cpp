#include "app/quick_main_window.h"

#include <QtCore/QEvent>
#include <QtGui/QScreen>
#include <utility>

#include "platform/linux/x11/x11_window_hints.h"
#include "ui/windows/window_geometry.h"

namespace orvane {
namespace {

constexpr QSize contentSize{440, 510};

}  // namespace

QuickMainWindow::QuickMainWindow(Views& views, MainWindowClosures closures,
                                 MainWindowDelegate delegate)
    : views_(views), delegate_(std::move(delegate)) {
  closures.closeWindow = [this] { view_->close(); };
  closures.minimize = [this] { view_->showMinimized(); };
  view_ = views.makeMainWindowView(std::move(closures));
  view_->setTitle(QStringLiteral("Orvane"));
  view_->setFlags(Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                  Qt::WindowSystemMenuHint | Qt::WindowMinimizeButtonHint |
                  Qt::WindowCloseButtonHint);
  view_->setMinimumSize(contentSize);
  view_->setMaximumSize(contentSize);
  view_->resize(contentSize);
  view_->setPosition(centredPosition(contentSize, view_->screen()->availableGeometry()));
  view_->installEventFilter(this);
  connect(view_.get(), &QWindow::activeChanged, this, [this] {
    if (view_->isActive() && delegate_.didBecomeKey) delegate_.didBecomeKey(*this);
  });
}

void QuickMainWindow::makeKeyAndOrderFront() {
  // For its menus and popovers; a compositor may have come or gone since.
  views_.setTranslucentWindows(blendsTranslucentWindows());
  const QList<ScreenArea> screens = screenAreas();
  if (!view_->isVisible() && framePlace_ && !screens.isEmpty())
    view_->setFramePosition(windowPosition(*framePlace_, contentSize, screens));
  view_->showNormal();
  view_->raise();
  view_->requestActivate();
}

void QuickMainWindow::orderOut() {
  if (!view_->isVisible()) return;
  framePlace_ = view_->framePosition();
  view_->hide();
}

bool QuickMainWindow::eventFilter(QObject* watched, QEvent* event) {
  if (watched != view_.get() || event->type() != QEvent::Close) return false;
  // Hidden by the delegate, so that the place is kept; the window itself stays.
  event->ignore();
  if (delegate_.willClose) delegate_.willClose(*this);
  return true;
}

}  // namespace orvane
