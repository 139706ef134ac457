#include "app/dialog_window.h"

#include <QtCore/QEvent>
#include <QtGui/QScreen>
#include <utility>

#include "app/content_size.h"

namespace orvane {

DialogWindow::DialogWindow(std::function<void()> closed) : closed_(std::move(closed)) {}

DialogWindow::~DialogWindow() = default;

void DialogWindow::show(std::unique_ptr<QQuickView> view, const QString& title) {
  close();
  view_ = std::move(view);
  view_->setTitle(title);
  view_->setFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                  Qt::WindowCloseButtonHint);
  view_->setPosition(view_->screen()->availableGeometry().center() -
                     QRect(QPoint(), view_->size()).center());
  keepContentSize(*view_);
  view_->installEventFilter(this);
  view_->show();
  raise();
}

void DialogWindow::raise() {
  if (!view_) return;
  view_->raise();
  view_->requestActivate();
}

void DialogWindow::close() {
  if (!view_) return;
  view_->removeEventFilter(this);
  view_->hide();
  // The view may be in the middle of the event that closes it.
  view_.release()->deleteLater();
}

bool DialogWindow::eventFilter(QObject* watched, QEvent* event) {
  if (watched != view_.get() || event->type() != QEvent::Close) return false;
  event->ignore();
  close();
  if (closed_) closed_();
  return true;
}

}  // namespace orvane
