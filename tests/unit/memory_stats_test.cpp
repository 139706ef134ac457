#include "core/memory_stats.h"

#include <gtest/gtest.h>

#include <cmath>

namespace orvane {
namespace {

TEST(MemoryStats, CountsPagesInBytesAndLeavesCompressedOutOfTheSums) {
  const Date now = Date{std::chrono::seconds{42}};
  const auto stats = MemoryStats::fromCounters({1000, 2000, 3000, 4000, 5000}, 16384, now);
  EXPECT_EQ(stats.free, 16'384'000U);
  EXPECT_EQ(stats.compressed, 81'920'000U);
  EXPECT_EQ(stats.totalMemory(), 163'840'000U);
  EXPECT_EQ(stats.usedMemory(), 98'304'000U);
  EXPECT_EQ(stats.usedMemory() + stats.availableMemory(), stats.totalMemory());
  EXPECT_DOUBLE_EQ(stats.usagePercentage(), 60.0);
  EXPECT_EQ(stats.timestamp, now);
}

TEST(MemoryStats, MultipliesIn64Bits) {
  const auto stats = MemoryStats::fromCounters({.active = 0xFFFFFFFF}, 65536, {});
  EXPECT_EQ(stats.active, 0xFFFFFFFFULL * 65536);
}

TEST(MemoryStats, UsageOfNoMemoryIsNoNumber) {
  EXPECT_TRUE(std::isnan(MemoryStats{}.usagePercentage()));
}

}  // namespace
}  // namespace orvane
