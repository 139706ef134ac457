#pragma once

#include <chrono>
#include <cstdint>
#include <optional>

namespace orvane {

using ReadingTime = std::chrono::steady_clock::time_point;

/// What /proc/PID/smaps_rollup said of a process, and the cheap figures of that moment.
struct ProportionalReading {
  std::optional<std::uint64_t> proportionalSize;  ///< bytes; none when the kernel refused
  std::uint64_t ownSize = 0;                      ///< bytes, as in Process
  std::uint64_t sharedSize = 0;                   ///< bytes, as in Process
  ReadingTime taken;
};

}  // namespace orvane
