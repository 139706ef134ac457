#pragma once

#include <memory>

#include "app/windows.h"
#include "platform/desktop_opener.h"
#include "platform/software_updater.h"

namespace orvane {

/// Runs the update checks the user asks for and shows how they go.
/// Threads: main thread only.
class UpdateController {
 public:
  /// `windows` and `desktop` must outlive the controller.
  UpdateController(UpdateSettings settings, WindowFactory& windows, DesktopOpener& desktop,
                   std::shared_ptr<MemoryManager> manager);
  UpdateController(const UpdateController&) = delete;
  UpdateController& operator=(const UpdateController&) = delete;

  /// The user-initiated check. One that is running already starts over.
  void checkForUpdates();

 private:
  UpdateSettings settings_;
  WindowFactory& windows_;
  DesktopOpener& desktop_;
  std::shared_ptr<MemoryManager> manager_;
  std::unique_ptr<UpdateWindow> window_;
  std::unique_ptr<SoftwareUpdater> updater_;
};

}  // namespace orvane
