#include "app/status_title.h"

#include "app/translation.h"
#include "core/number_format.h"
#include "core/texts.h"

namespace orvane {
namespace {

constexpr const char* figureNote = "figure at the top of the status item's menu";

}  // namespace

std::optional<int> wholeUsagePercent(const MemoryStats& stats) {
  if (stats.totalMemory() == 0) return std::nullopt;
  return static_cast<int>(stats.usagePercentage());
}

std::string percentText(int percent) {
  return std::to_string(percent) + "%";
}

std::string usageSummary(const std::optional<MemoryStats>& stats) {
  const auto percent = stats ? wholeUsagePercent(*stats) : std::nullopt;
  if (!percent) return translated("Memory: unknown", figureNote);
  const auto gigabytes = [](auto bytes) { return fixedText(megabytes(bytes) / 1024, 1); };
  return filled(
      translated("Memory: %1 (%2 of %3 GB)", figureNote),
      {percentText(*percent), gigabytes(stats->usedMemory()), gigabytes(stats->totalMemory())});
}

std::string statusTitle(int percent) {
  return " " + percentText(percent);
}

}  // namespace orvane
