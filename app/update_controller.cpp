#include "app/update_controller.h"

#include <utility>

namespace orvane {

UpdateController::UpdateController(UpdateSettings settings, WindowFactory& windows,
                                   DesktopOpener& desktop, std::shared_ptr<MemoryManager> manager)
    : settings_(std::move(settings)),
      windows_(windows),
      desktop_(desktop),
      manager_(std::move(manager)) {}

void UpdateController::checkForUpdates() {
  if (!window_) {
    window_ = windows_.makeUpdateWindow(
        manager_, {.tryAgain = [this] { checkForUpdates(); },
                   .openPage = [this](const std::string& address) { desktop_.openUrl(address); },
                   .close =
                       [this] {
                         updater_->cancel();
                         window_->close();
                       }});
  }
  if (!updater_) updater_ = windows_.makeUpdater(settings_);
  if (!window_ || !updater_) return;
  window_->showChecking();
  updater_->checkForUpdates([this](const UpdateResult& result) { window_->showResult(result); });
}

}  // namespace orvane
