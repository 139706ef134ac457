#include "core/memory_history.h"

#include <gtest/gtest.h>

namespace orvane {
namespace {

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
