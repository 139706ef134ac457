#pragma once

#include <vector>

#include "core/memory_stats.h"
#include "core/observable.h"
#include "core/uuid.h"

namespace orvane {

/// Memory usage at one moment.
struct MemoryDataPoint {
  Uuid id;
  Date timestamp;             ///< of the sample, not of the insertion
  double usedPercentage = 0;  ///< 0 to 100
  double freePercentage = 0;  ///< 0 to 100
};

/// The recent course of the machine's memory usage: at most 60 points, the newest last.
class MemoryHistory : public Observable {
 public:
  static constexpr std::size_t maxDataPoints = 60;

  /// Appends the point of one sample and drops the oldest ones over the limit.
  virtual void addDataPoint(const MemoryStats& stats);

  [[nodiscard]] const std::vector<MemoryDataPoint>& dataPoints() const { return points_.get(); }

 private:
  Published<std::vector<MemoryDataPoint>> points_{*this, {}};
};

}  // namespace orvane
