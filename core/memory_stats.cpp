#include "core/memory_stats.h"

namespace orvane {

MemoryStats MemoryStats::fromCounters(const PageCounts& counts, std::uint64_t pageSize, Date now) {
  return {.free = counts.free * pageSize,
          .active = counts.active * pageSize,
          .inactive = counts.inactive * pageSize,
          .wired = counts.wired * pageSize,
          .compressed = counts.compressed * pageSize,
          .timestamp = now};
}

std::uint64_t MemoryStats::totalMemory() const {
  return free + active + inactive + wired;
}

std::uint64_t MemoryStats::usedMemory() const {
  return active + wired;
}

std::uint64_t MemoryStats::availableMemory() const {
  return free + inactive;
}

double MemoryStats::usagePercentage() const {
  return static_cast<double>(usedMemory()) / static_cast<double>(totalMemory()) * 100.0;
}

}  // namespace orvane
