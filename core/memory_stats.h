#pragma once

#include <cstdint>

#include "platform/clock.h"
#include "platform/memory_counters.h"

namespace orvane {

inline constexpr double bytesPerMB = 1048576.0;

/// A byte count in the model's "MB" (2^20 bytes).
[[nodiscard]] constexpr double megabytes(std::uint64_t bytes) {
  return static_cast<double>(bytes) / bytesPerMB;
}

/// One sample of the machine's memory, in bytes.
///
/// The first four add up to all memory; `compressed` lies inside them and is part of no sum.
struct MemoryStats {
  std::uint64_t free = 0;        ///< unused
  std::uint64_t active = 0;      ///< what programs hold
  std::uint64_t inactive = 0;    ///< caches that can be handed out again
  std::uint64_t wired = 0;       ///< what the kernel can't give back
  std::uint64_t compressed = 0;  ///< memory that holds compressed pages
  Date timestamp = {};           ///< when the sample was built

  /// Pages times page size, in 64-bit arithmetic.
  [[nodiscard]] static MemoryStats fromCounters(const PageCounts& counts, std::uint64_t pageSize,
                                                Date now);

  [[nodiscard]] std::uint64_t totalMemory() const;
  [[nodiscard]] std::uint64_t usedMemory() const;
  [[nodiscard]] std::uint64_t availableMemory() const;

  /// 0 to 100; not a number when the total is 0.
  [[nodiscard]] double usagePercentage() const;
};

}  // namespace orvane
