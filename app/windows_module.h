#pragma once

#include <functional>
#include <memory>
#include <string>

#include "core/memory_manager.h"
#include "platform/appearance.h"
#include "platform/software_updater.h"
#include "ui/windows/windows.h"

namespace orvane {

/// What the module of the windows makes: both, or nothing.
struct LoadedWindows {
  std::unique_ptr<Windows> windows;
  std::unique_ptr<SoftwareUpdater> updaterController;  ///< the check that the update window shows
};

/// What the windows need besides the shell and the model.
struct WindowSettings {
  Appearance& appearance;  ///< must outlive the windows, which take its handler
  ProductFacts facts;
  std::string updateFeed;         ///< empty: updates come from the system's package manager
  std::string moduleFolder = {};  ///< where the module lies, and beside it what draws icons
};

/// Makes the windows; `shell` must outlive them. Nothing when they can't be had.
using WindowLoader =
    std::function<LoadedWindows(Shell& shell, const std::shared_ptr<MemoryManager>& manager)>;

/// File name, without its ending, of the module that holds the windows.
inline constexpr const char* windowsModuleFile = "orvane-windows";

/// Its one function, `makeWindowsName`: puts the real windows into `made`.
using MakeWindows = void (*)(LoadedWindows& made, const WindowSettings& settings, Shell& shell,
                             const std::shared_ptr<MemoryManager>& manager);

}  // namespace orvane
