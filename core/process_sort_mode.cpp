#include "core/process_sort_mode.h"

#include <algorithm>

#include "core/memory_stats.h"

namespace orvane {

std::string_view rawValue(ProcessSortMode mode) {
  switch (mode) {
    case ProcessSortMode::average:
      return "average";
    case ProcessSortMode::peak:
      return "peak";
    case ProcessSortMode::current:
      break;
  }
  return "current";
}

std::optional<ProcessSortMode> processSortModeFrom(std::string_view text) {
  for (const auto mode :
       {ProcessSortMode::current, ProcessSortMode::average, ProcessSortMode::peak}) {
    if (rawValue(mode) == text) return mode;
  }
  return std::nullopt;
}

double sortMetric(const ProcessInfo& process, ProcessSortMode mode,
                  const ProcessMemoryHistories& histories) {
  if (mode != ProcessSortMode::current) {
    if (const auto entry = histories.find(process.pid); entry != histories.end()) {
      return mode == ProcessSortMode::average ? entry->second->averageMemory()
                                              : entry->second->peakMemory();
    }
  }
  return megabytes(process.memoryUsage);
}

void sortProcesses(std::vector<ProcessInfo>& processes, ProcessSortMode mode,
                   const ProcessMemoryHistories& histories) {
  if (mode == ProcessSortMode::current) {
    std::stable_sort(processes.begin(), processes.end(),
                     [](const auto& a, const auto& b) { return a.memoryUsage > b.memoryUsage; });
    return;
  }
  std::stable_sort(processes.begin(), processes.end(), [&](const auto& a, const auto& b) {
    return sortMetric(a, mode, histories) > sortMetric(b, mode, histories);
  });
}

}  // namespace orvane
