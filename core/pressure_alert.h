#pragma once

#include <optional>
#include <string>

#include "core/memory_stats.h"
#include "core/process_info.h"
#include "core/texts.h"

namespace orvane {

/// The texts of one memory pressure alert.
struct PressureAlert {
  std::string message;           ///< for the views, up to two lines
  std::string notificationBody;  ///< for the desktop, one line
};

inline constexpr const char* pressureNotificationTitle = "Memory Pressure High";

/// The alert for a sample whose usage is above `threshold` percent, naming `top` when there is
/// one; none at or below the threshold and for a sample without memory.
[[nodiscard]] std::optional<PressureAlert> pressureAlert(const MemoryStats& stats, double threshold,
                                                         const ProcessInfo* top,
                                                         const Translate& translate = inEnglish);

}  // namespace orvane
