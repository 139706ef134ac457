#include "app/status_title.h"

#include "core/number_format.h"

namespace orvane {

std::optional<int> wholeUsagePercent(const MemoryStats& stats) {
  if (stats.totalMemory() == 0) return std::nullopt;
  return static_cast<int>(stats.usagePercentage());
}

std::string percentText(int percent) {
  return std::to_string(percent) + "%";
}

std::string usageSummary(const std::optional<MemoryStats>& stats) {
  const auto percent = stats ? wholeUsagePercent(*stats) : std::nullopt;
  if (!percent) return "Memory: unknown";
  const auto gigabytes = [](auto bytes) { return fixedText(megabytes(bytes) / 1024, 1); };
  return "Memory: " + percentText(*percent) + " (" + gigabytes(stats->usedMemory()) + " of " +
         gigabytes(stats->totalMemory()) + " GB)";
}

std::string statusTitle(int percent) {
  return " " + percentText(percent);
}

}  // namespace orvane
