#include "core/memory_manager.h"

#include <gtest/gtest.h>

#include "tests/fakes/fake_services.h"

namespace orvane {
namespace {

using namespace std::chrono_literals;

class Manager : public testing::Test {
 protected:
  void start() { manager_ = MemoryManager::create(fakes_.services()); }
  void tick() { fakes_.time.advance(5s); }

  fakes::FakeServices fakes_;
  std::shared_ptr<MemoryManager> manager_;
};

TEST_F(Manager, SamplesAtOnceAndEveryFiveSeconds) {
  start();
  EXPECT_FALSE(manager_->previousStats());
  EXPECT_EQ(manager_->memoryHistory()->dataPoints().size(), 1U);
  EXPECT_EQ(fakes_.applications.collectionCount, 0);
  const MemoryStats first = *manager_->currentStats();
  fakes_.time.advance(4999ms);
  EXPECT_EQ(fakes_.counters.readCount, 1);
  fakes_.time.advance(1ms);
  EXPECT_EQ(manager_->previousStats()->timestamp, first.timestamp);
  EXPECT_EQ(manager_->currentStats()->timestamp - first.timestamp, 5s);
  tick();
  EXPECT_EQ(fakes_.counters.readCount, 3);
  EXPECT_EQ(fakes_.applications.collectionCount, 2);
}

TEST_F(Manager, LosesAndRegainsTheSampleWithTheCounters) {
  start();
  const auto readable = fakes_.counters.counts;
  fakes_.counters.counts.reset();
  tick();
  EXPECT_FALSE(manager_->currentStats());
  EXPECT_TRUE(manager_->previousStats());
  EXPECT_EQ(manager_->memoryHistory()->dataPoints().size(), 1U);
  fakes_.counters.counts = readable;
  tick();
  EXPECT_TRUE(manager_->currentStats());
  EXPECT_FALSE(manager_->previousStats());
  EXPECT_EQ(manager_->memoryHistory()->dataPoints().size(), 2U);
}

TEST_F(Manager, LoadsTheStoredSortModeAndStoresEachAssignment) {
  const std::pair<const char*, ProcessSortMode> cases[] = {{"peak", ProcessSortMode::peak},
                                                           {"average", ProcessSortMode::average},
                                                           {"Peak", ProcessSortMode::current}};
  for (const auto& [text, mode] : cases) {
    fakes_.preferences.texts["processSortMode"] = text;
    start();
    EXPECT_EQ(manager_->processSortMode(), mode) << text;
  }
  EXPECT_TRUE(fakes_.preferences.writes.empty()) << "loading writes nothing";
  for (int i = 0; i < 2; ++i) manager_->setProcessSortMode(ProcessSortMode::average);
  EXPECT_EQ(fakes_.preferences.writes,
            (std::vector<std::string>{"processSortMode=average", "processSortMode=average"}));
  EXPECT_EQ(fakes_.applications.collectionCount, 2) << "each rebuilds the list";
}

TEST_F(Manager, FreezesTheListWhileAProcessIsSelected) {
  fakes_.applications.add(10, "Editor", 20 << 20);
  start();
  tick();
  const ProcessInfo selected = manager_->topProcesses().at(0);
  manager_->setSelectedProcess(selected);
  tick();
  EXPECT_EQ(manager_->topProcesses().at(0).id, selected.id);
  EXPECT_EQ(manager_->processMemoryHistories().at(10)->dataPoints().size(), 1U);
  EXPECT_EQ(manager_->memoryHistory()->dataPoints().size(), 3U);

  manager_->setProcessSortMode(ProcessSortMode::peak);
  EXPECT_NE(manager_->topProcesses().at(0).id, selected.id);
  EXPECT_EQ(manager_->selectedProcess()->id, selected.id);

  manager_->setSelectedProcess(std::nullopt);
  tick();
  EXPECT_EQ(manager_->processMemoryHistories().at(10)->dataPoints().size(), 3U);
}

TEST_F(Manager, AnnouncesEachChangeBeforeItIsMade) {
  start();
  std::vector<bool> seen;
  const auto subscription =
      manager_->observe([&] { seen.push_back(manager_->selectedProcess().has_value()); });
  manager_->setSelectedProcess(ProcessInfo{});
  manager_->setSelectedProcess(std::nullopt);
  EXPECT_EQ(seen, (std::vector<bool>{false, true}));
  seen.clear();
  manager_->updateMemoryStats();  // previous and current sample; the history has its own signal
  EXPECT_EQ(seen.size(), 2U);
}

TEST_F(Manager, EndsQuietlyWithBlocksPending) {
  for (const bool boosted : {false, true}) {  // the background step or the checks are pending
    start();
    manager_->boostMemory();
    if (boosted) fakes_.time.runPending();
    const std::weak_ptr<MemoryManager> weak = manager_;
    manager_.reset();
    EXPECT_TRUE(weak.expired());
    const int reads = fakes_.counters.readCount;
    fakes_.time.advance(60s);
    EXPECT_EQ(fakes_.counters.readCount, reads);
    EXPECT_EQ(fakes_.claims.claimedWords.size(), boosted ? 1U : 0U);
  }
}

}  // namespace
}  // namespace orvane
