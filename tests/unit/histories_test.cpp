#include <gtest/gtest.h>

#include <array>
#include <cmath>

#include "core/memory_history.h"
#include "core/process_memory_history.h"
#include "core/process_sort_mode.h"
#include "tests/fakes/virtual_time.h"

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
  const auto stats = sampleAt(7, 30);
  history.addDataPoint(stats);
  history.addDataPoint(stats);
  const auto& points = history.dataPoints();
  EXPECT_DOUBLE_EQ(points.at(0).usedPercentage, 30.0);
  EXPECT_DOUBLE_EQ(points[0].freePercentage, 70.0);
  EXPECT_EQ(points[0].timestamp, stats.timestamp);
  EXPECT_NE(points.at(0).id, points.at(1).id);
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

TEST(ProcessMemoryHistory, DerivesItsFiguresFromThePoints) {
  fakes::VirtualTime time;
  ProcessMemoryHistory history(time);
  EXPECT_EQ(history.peakMemory() + history.minimumMemory() + history.averageMemory(), 0.0);
  for (const double value : {200.0, 100.0, 300.0}) history.addDataPoint(value);
  EXPECT_EQ(history.peakMemory(), 300.0);
  EXPECT_EQ(history.minimumMemory(), 100.0);
  EXPECT_EQ(history.averageMemory(), 200.0);
}

TEST(ProcessMemoryHistory, KeepsSixtyPointsAndWhenItWasLastSeen) {
  fakes::VirtualTime time;
  ProcessMemoryHistory history(time);
  EXPECT_EQ(history.lastSeen(), time.now());
  for (int value = 0; value < 61; ++value) {
    time.advance(Duration{5});
    history.addDataPoint(value);
  }
  ASSERT_EQ(history.dataPoints().size(), 60U);
  EXPECT_EQ(history.dataPoints().front().memoryMB, 1.0);
  EXPECT_EQ(history.dataPoints().back().timestamp, time.now());
  EXPECT_EQ(history.lastSeen(), time.now());
}

TEST(SortModes, RankByTheirOwnFigure) {
  fakes::VirtualTime time;
  ProcessMemoryHistories histories;
  for (const auto& [pid, values] : {std::pair(1, std::array{800.0, 100.0}), {2, {500, 500}}}) {
    const auto history = std::make_shared<ProcessMemoryHistory>(time);
    for (const double value : values) history->addDataPoint(value);
    histories[pid] = history;
  }
  std::vector<ProcessInfo> list(3);  // the third has no history and ranks by its current figure
  for (std::size_t i = 0; i < 3; ++i) {
    list[i].pid = static_cast<std::int32_t>(i) + 1;
    list[i].memoryUsage = std::array{100ULL, 500ULL, 460ULL}[i] << 20U;
  }
  EXPECT_EQ(sortMetric(list[2], ProcessSortMode::average, histories), 460.0);
  const auto order = [&](ProcessSortMode mode) {
    sortProcesses(list, mode, histories);
    return std::array{list[0].pid, list[1].pid, list[2].pid};
  };
  EXPECT_EQ(order(ProcessSortMode::current), (std::array{2, 3, 1}));
  EXPECT_EQ(order(ProcessSortMode::peak), (std::array{1, 2, 3}));
  EXPECT_EQ(order(ProcessSortMode::average), (std::array{2, 3, 1}));
}

}  // namespace
}  // namespace orvane
