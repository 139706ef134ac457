#include "core/process_memory_history.h"

#include <gtest/gtest.h>

#include "core/process_sort_mode.h"
#include "tests/fakes/virtual_time.h"

namespace orvane {
namespace {

using namespace std::chrono_literals;

constexpr std::uint64_t mebibyte = 1048576;

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
    time.advance(5s);
    history.addDataPoint(value);
  }
  ASSERT_EQ(history.dataPoints().size(), 60U);
  EXPECT_EQ(history.dataPoints().front().memoryMB, 1.0);
  EXPECT_EQ(history.dataPoints().back().timestamp, time.now());
  EXPECT_EQ(history.lastSeen(), time.now());
}

class SortModes : public testing::Test {
 protected:
  void addHistory(std::int32_t pid, std::initializer_list<double> values) {
    auto history = std::make_shared<ProcessMemoryHistory>(time_);
    for (const double value : values) history->addDataPoint(value);
    histories_[pid] = history;
  }
  static ProcessInfo process(std::int32_t pid, std::uint64_t megabyteCount) {
    ProcessInfo info;
    info.pid = pid;
    info.memoryUsage = megabyteCount * mebibyte;
    return info;
  }
  std::vector<std::int32_t> order(std::vector<ProcessInfo> processes, ProcessSortMode mode) {
    sortProcesses(processes, mode, histories_);
    std::vector<std::int32_t> pids;
    pids.reserve(processes.size());
    for (const auto& info : processes) pids.push_back(info.pid);
    return pids;
  }

  fakes::VirtualTime time_;
  ProcessMemoryHistories histories_;
};

TEST_F(SortModes, RankByTheirOwnFigure) {
  addHistory(1, {800, 100});
  addHistory(2, {500, 500});
  const std::vector<ProcessInfo> list = {process(1, 100), process(2, 500), process(3, 460)};
  EXPECT_EQ(order(list, ProcessSortMode::current), (std::vector<std::int32_t>{2, 3, 1}));
  EXPECT_EQ(order(list, ProcessSortMode::peak), (std::vector<std::int32_t>{1, 2, 3}));
  // The third has no history and ranks by its current figure.
  EXPECT_EQ(order(list, ProcessSortMode::average), (std::vector<std::int32_t>{2, 3, 1}));
  EXPECT_EQ(sortMetric(list[2], ProcessSortMode::average, histories_), 460.0);
}

}  // namespace
}  // namespace orvane
