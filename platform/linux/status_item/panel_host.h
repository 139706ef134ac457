#pragma once

#include <string_view>

namespace orvane {

/// What a panel does with a status item; an unknown one nothing of it.
struct PanelHost {
  bool drawsLabels = false;  ///< beside the icon
  bool rereadsAll = false;   ///< asks for every property after each signal
  /// Shows a label only from the first signal on that brings another one than it has read.
  bool awaitsOtherLabel = false;

  bool operator==(const PanelHost&) const = default;
};

/// The panel whose process has this name (as in /proc/PID/comm, at most 15 bytes).
[[nodiscard]] PanelHost panelHost(std::string_view processName);

}  // namespace orvane
