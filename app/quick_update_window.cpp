#include "app/quick_update_window.h"

#include <utility>

namespace orvane {

QuickUpdateWindow::QuickUpdateWindow(Views& views, UpdateClosures closures,
                                     std::string runningVersion)
    : views_(views),
      closures_(std::move(closures)),
      runningVersion_(std::move(runningVersion)),
      window_([this] {
        if (closures_.close) closures_.close();
      }) {}

void QuickUpdateWindow::showChecking() {
  if (QQuickView* view = window_.view()) {
    Views::showUpdate(*view, std::nullopt);
    window_.raise();
    return;
  }
  window_.show(views_.makeUpdateView(closures_, runningVersion_),
               QStringLiteral("Software Update"));
}

void QuickUpdateWindow::showResult(const UpdateResult& result) {
  if (QQuickView* view = window_.view()) Views::showUpdate(*view, result);
}

}  // namespace orvane
