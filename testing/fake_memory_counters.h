#pragma once

#include <cstdint>
#include <optional>

#include "platform/memory_counters.h"

namespace orvane::fakes {

/// Gives the counts a test sets; none while `counts` is none, as a failed read does.
class FakeMemoryCounters : public MemoryCounters {
 public:
  std::optional<PageCounts> read() override {
    ++readCount;
    return counts;
  }
  [[nodiscard]] std::uint64_t pageSize() const override { return bytesPerPage; }

  /// A machine of 100,000 pages with `percent` of them used.
  void setUsage(double percent) {
    const auto used = static_cast<std::uint32_t>(percent * 1000.0);
    counts = PageCounts{.free = 100'000 - used, .active = used};
  }

  std::optional<PageCounts> counts =
      PageCounts{.free = 400, .active = 300, .inactive = 200, .wired = 100, .compressed = 50};
  std::uint64_t bytesPerPage = 4096;
  int readCount = 0;
};

}  // namespace orvane::fakes
