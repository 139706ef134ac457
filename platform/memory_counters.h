#pragma once

#include <cstdint>
#include <optional>

namespace orvane {

/// The five page counts one memory sample is made of. Unit: pages of
/// `MemoryCounters::pageSize()` bytes. free + active + inactive + wired is all of the machine's
/// memory; compressed lies inside the others and is counted a second time.
struct PageCounts {
  std::uint32_t free = 0;
  std::uint32_t active = 0;
  std::uint32_t inactive = 0;
  std::uint32_t wired = 0;
  std::uint32_t compressed = 0;
};

/// The kernel's memory counters.
/// Threads: main thread only. Ownership: none passes. Cost: one read of an open descriptor.
class MemoryCounters {
 public:
  virtual ~MemoryCounters() = default;

  /// The counters of this moment; none when they cannot be read or make no sense.
  [[nodiscard]] virtual std::optional<PageCounts> read() = 0;

  /// Size of one page in bytes, never 0.
  [[nodiscard]] virtual std::uint64_t pageSize() const = 0;
};

}  // namespace orvane
