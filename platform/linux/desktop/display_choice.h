#pragma once

#include <chrono>

namespace orvane {

/// Whether to run on Xwayland rather than on Wayland: on Plasma, which runs Xwayland anyway and
/// where only an X11 window can be placed at the panel's item. QT_QPA_PLATFORM overrides. False
/// when the X server doesn't answer within `patience`. Call it before there is a second thread.
[[nodiscard]] bool prefersXwayland(std::chrono::milliseconds patience = std::chrono::seconds(1));

}  // namespace orvane
