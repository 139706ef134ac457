#pragma once

#include <optional>
#include <string>

#include "core/memory_stats.h"

namespace orvane {

/// The usage in whole percent, truncated toward zero; none while there is no memory to use.
[[nodiscard]] std::optional<int> wholeUsagePercent(const MemoryStats& stats);

/// "57%".
[[nodiscard]] std::string percentText(int percent);

/// "Memory: 20% (4.8 of 23.5 GB)", used and total; "Memory: unknown" without a sample.
[[nodiscard]] std::string usageSummary(const std::optional<MemoryStats>& stats);

/// The status item's title, " 57%".
[[nodiscard]] std::string statusTitle(int percent);

}  // namespace orvane
