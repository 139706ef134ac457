#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <vector>

#include "core/observable.h"
#include "core/uuid.h"
#include "platform/clock.h"

namespace orvane {

/// One application's memory at one moment.
struct ProcessMemoryDataPoint {
  Uuid id;
  Date timestamp;       ///< when the point was added
  double memoryMB = 0;  ///< units of 2^20 bytes
};

/// The recent memory use of one application: at most 60 points, the newest last.
class ProcessMemoryHistory : public Observable {
 public:
  static constexpr std::size_t maxDataPoints = 60;

  /// Starts empty, last seen now. `clock` must outlive the history.
  explicit ProcessMemoryHistory(const Clock& clock);

  virtual void addDataPoint(double memoryMB);

  /// Largest, smallest and mean value in MB; 0 while there are no points.
  [[nodiscard]] virtual double peakMemory() const;
  [[nodiscard]] virtual double minimumMemory() const;
  [[nodiscard]] virtual double averageMemory() const;

  [[nodiscard]] const std::vector<ProcessMemoryDataPoint>& dataPoints() const {
    return points_.get();
  }
  [[nodiscard]] Date lastSeen() const { return lastSeen_; }

 private:
  const Clock& clock_;
  Published<std::vector<ProcessMemoryDataPoint>> points_{*this, {}};
  Date lastSeen_;
};

/// The histories by process id.
using ProcessMemoryHistories = std::map<std::int32_t, std::shared_ptr<ProcessMemoryHistory>>;

}  // namespace orvane
