#pragma once

#include <string_view>

namespace orvane {

/// True when the panel whose process has this name (as in /proc/PID/comm, at most 15 bytes) draws
/// the label of a status item beside its icon. Unknown panels draw none.
[[nodiscard]] bool panelDrawsLabels(std::string_view processName);

}  // namespace orvane
