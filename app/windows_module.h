#pragma once

#include <memory>

#include "app/windows.h"
#include "platform/appearance.h"

namespace orvane {

/// File name, without its ending, of the module that holds the windows.
inline constexpr const char* windowsModuleFile = "orvane-windows";

/// Name of its one function, `MakeWindows`.
inline constexpr const char* makeWindowsName = "makeOrvaneWindows";

/// Puts a factory of the real windows into `windows`. `appearance` must outlive it.
using MakeWindows = void (*)(std::unique_ptr<WindowFactory>& windows, Appearance& appearance,
                             const ProductFacts& facts);

}  // namespace orvane
