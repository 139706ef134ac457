#pragma once

#include <string>
#include <vector>

#include "app/windows_module.h"

namespace orvane {

/// Loads the module of the windows from the first of `folders` that has it: Qt Quick, the views and
/// the network are most of the program, and most days nobody opens a window.
///
/// Main thread only. A module that can't be loaded is reported on standard error.
[[nodiscard]] LoadedWindows loadWindows(const std::vector<std::string>& folders,
                                        const WindowSettings& settings, Shell& shell,
                                        const std::shared_ptr<MemoryManager>& manager);

}  // namespace orvane
