#include "app/status_title.h"

namespace orvane {

std::optional<int> wholeUsagePercent(const MemoryStats& stats) {
  if (stats.totalMemory() == 0) return std::nullopt;
  return static_cast<int>(stats.usagePercentage());
}

std::string percentText(int percent) {
  return std::to_string(percent) + "%";
}

std::string statusTitle(int percent) {
  return " " + percentText(percent);
}

}  // namespace orvane
