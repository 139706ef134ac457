#include <gtest/gtest.h>

#include <array>
#include <cmath>

#include "core/memory_history.h"
#include "core/process_memory_history.h"
#include "testing/virtual_time.h"

namespace orvane {
namespace {

TEST(MemoryStats, CountsPagesInBytesAndLeavesCompressedOutOfTheSums) {
  const Date now = Date{std::chrono::seconds{42}};
  const auto stats = MemoryStats::fromCounters({1000, 2000, 3000, 4000, 0xFFFFFFFF}, 16384, now);
  EXPECT_EQ((std::array{stats.free, stats.active, stats.inactive, stats.wired, stats.compressed}),
            (std::array<std::uint64_t, 5>{16'384'000, 32'768'000, 49'152'000, 65'536'000,
                                          0xFFFFFFFFULL * 16384}));
  EXPECT_EQ(stats.totalMemory(), 163'840'000U);
  EXPECT_EQ(stats.usedMemory(), 98'304'000U);
  EXPECT_EQ(stats.availableMemory(), 65'536'000U);
  EXPECT_DOUBLE_EQ(stats.usagePercentage(), 60.0);
  EXPECT_EQ(stats.timestamp, now);
  EXPECT_TRUE(std::isnan(MemoryStats{}.usagePercentage()));
}

TEST(MemoryHistory, MakesAPointOfEachSampleAndKeepsTheNewestSixty) {
  MemoryHistory history;
  std::vector<std::size_t> sizes;
  const auto subscription = history.observe([&] { sizes.push_back(history.dataPoints().size()); });
  for (int second = 0; second < 61; ++second) {
    MemoryStats stats{.free = 4000, .active = 2000, .inactive = 3000, .wired = 1000};
    stats.timestamp = Date{std::chrono::seconds{second}};
    history.addDataPoint(stats);
  }
  const auto& points = history.dataPoints();
  ASSERT_EQ(points.size(), 60U);
  for (std::size_t index = 0; index < points.size(); ++index) {
    EXPECT_EQ(points[index].timestamp, Date{std::chrono::seconds{index + 1}});
    EXPECT_DOUBLE_EQ(points[index].usedPercentage, 30.0);
    EXPECT_DOUBLE_EQ(points[index].freePercentage, 70.0);
    EXPECT_NE(points[index].id, points[(index + 1) % 60].id);
    EXPECT_EQ(sizes.at(index), index) << "announced before it is added";
  }
  // The last is added, and then the first removed.
  EXPECT_EQ(std::vector(sizes.begin() + 60, sizes.end()), (std::vector<std::size_t>{60, 61}));
}

TEST(Observable, EndsWithTheSubscriptionEvenFromInsideAHandler) {
  MemoryHistory history;
  int calls = 0;
  Observable::Subscription subscription = history.observe([&] {
    ++calls;
    subscription = {};
  });
  for (int i = 0; i < 2; ++i) history.addDataPoint({.free = 1});
  EXPECT_EQ(calls, 1);
}

TEST(ProcessMemoryHistory, DerivesItsFiguresFromItsSixtyPointsAndWhenItWasLastSeen) {
  fakes::VirtualTime time;
  ProcessMemoryHistory history(time);
  EXPECT_EQ(history.peakMemory() + history.minimumMemory() + history.averageMemory(), 0.0);
  EXPECT_EQ(history.lastSeen(), time.now());
  const auto subscription = history.observe([&] { EXPECT_LT(history.lastSeen(), time.now()); });
  for (int value = 0; value < 61; ++value) {
    time.advance(Duration{5});
    history.addDataPoint(value == 3 ? 900.0 : value);
    EXPECT_EQ(history.dataPoints().back().timestamp, time.now());
    EXPECT_EQ(history.lastSeen(), time.now());
  }
  const auto& points = history.dataPoints();
  ASSERT_EQ(points.size(), 60U);
  for (std::size_t index = 0; index < 60; ++index) {
    EXPECT_EQ(points[index].memoryMB, index == 2 ? 900.0 : static_cast<double>(index) + 1.0);
    EXPECT_NE(points[index].id, points[(index + 1) % 60].id);
  }
  EXPECT_EQ(history.peakMemory(), 900.0);
  EXPECT_EQ(history.minimumMemory(), 1.0);
  EXPECT_EQ(history.averageMemory(), (1830.0 - 3.0 + 900.0) / 60);
}

}  // namespace
}  // namespace orvane
