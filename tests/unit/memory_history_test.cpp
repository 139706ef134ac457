#include "core/memory_history.h"

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

MemoryStats sampleAt(int second, std::uint64_t active) {
  return {.free = 100 - active, .active = active, .timestamp = Date{std::chrono::seconds{second}}};
}

TEST(MemoryHistory, MakesAPointOfASample) {
  MemoryHistory history;
  const auto stats =
      MemoryStats::fromCounters({4000, 2000, 3000, 1000, 700}, 4096, Date{std::chrono::seconds{7}});
  history.addDataPoint(stats);
  history.addDataPoint(stats);
  const auto& points = history.dataPoints();
  ASSERT_EQ(points.size(), 2U);
  EXPECT_DOUBLE_EQ(points[0].usedPercentage, 30.0);
  EXPECT_DOUBLE_EQ(points[0].freePercentage, 70.0);
  EXPECT_EQ(points[0].timestamp, stats.timestamp);
  EXPECT_NE(points[0].id, points[1].id);
}

TEST(MemoryHistory, KeepsTheNewestSixtyInOrder) {
  MemoryHistory history;
  for (int second = 0; second < 61; ++second) history.addDataPoint(sampleAt(second, 50));
  const auto& points = history.dataPoints();
  ASSERT_EQ(points.size(), 60U);
  for (std::size_t index = 0; index < points.size(); ++index) {
    EXPECT_EQ(points[index].timestamp.time_since_epoch(),
              std::chrono::seconds{static_cast<int>(index) + 1});
  }
}

TEST(MemoryHistory, AnnouncesTheAppendAndTheRemovalBeforeTheyHappen) {
  MemoryHistory history;
  for (int second = 0; second < 59; ++second) history.addDataPoint(sampleAt(second, 50));
  std::vector<std::size_t> sizesAtSignal;
  const auto subscription =
      history.observe([&] { sizesAtSignal.push_back(history.dataPoints().size()); });
  history.addDataPoint(sampleAt(60, 50));
  history.addDataPoint(sampleAt(61, 50));
  EXPECT_EQ(sizesAtSignal, (std::vector<std::size_t>{59, 60, 61}));
}

TEST(Observable, EndsWithTheSubscriptionEvenFromInsideAHandler) {
  MemoryHistory history;
  int calls = 0;
  Observable::Subscription subscription = history.observe([&] {
    ++calls;
    subscription = {};
  });
  history.addDataPoint(sampleAt(0, 10));
  history.addDataPoint(sampleAt(1, 10));
  EXPECT_EQ(calls, 1);
}

}  // namespace
}  // namespace orvane
