#include "core/memory_history.h"

#include "core/bounded_points.h"

namespace orvane {

void MemoryHistory::addDataPoint(const MemoryStats& stats) {
  const auto total = static_cast<double>(stats.totalMemory());
  appendBounded(points_,
                MemoryDataPoint{
                    .id = Uuid::random(),
                    .timestamp = stats.timestamp,
                    .usedPercentage = stats.usagePercentage(),
                    .freePercentage = static_cast<double>(stats.availableMemory()) / total * 100.0},
                maxDataPoints);
}

}  // namespace orvane
