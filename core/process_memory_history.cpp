#include "core/process_memory_history.h"

#include <algorithm>

#include "core/bounded_points.h"

namespace orvane {
namespace {

bool usesLess(const ProcessMemoryDataPoint& a, const ProcessMemoryDataPoint& b) {
  return a.memoryMB < b.memoryMB;
}

}  // namespace

ProcessMemoryHistory::ProcessMemoryHistory(const Clock& clock)
    : clock_(clock), lastSeen_(clock.now()) {}

void ProcessMemoryHistory::addDataPoint(double memoryMB) {
  const Date now = clock_.now();
  appendBounded(
      points_, ProcessMemoryDataPoint{.id = Uuid::random(), .timestamp = now, .memoryMB = memoryMB},
      maxDataPoints);
  lastSeen_ = now;
}

double ProcessMemoryHistory::peakMemory() const {
  const auto& points = dataPoints();
  return points.empty() ? 0.0 : std::max_element(points.begin(), points.end(), usesLess)->memoryMB;
}

double ProcessMemoryHistory::minimumMemory() const {
  const auto& points = dataPoints();
  return points.empty() ? 0.0 : std::min_element(points.begin(), points.end(), usesLess)->memoryMB;
}

double ProcessMemoryHistory::averageMemory() const {
  const auto& points = dataPoints();
  if (points.empty()) return 0.0;
  double sum = 0;
  for (const auto& point : points) sum += point.memoryMB;
  return sum / static_cast<double>(points.size());
}

}  // namespace orvane
