#include "core/memory_manager.h"

#include <gtest/gtest.h>

#include <type_traits>

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

static_assert(!std::is_constructible_v<MemoryManager, MemoryManagerServices>, "only by create");

struct Journalist : MemoryManager {
  using MemoryManager::MemoryManager;
  std::optional<MemoryStats> fetchMemoryStats() override {
    journal += "sample ";
    return MemoryStats{.free = 1};
  }
  void checkMemoryPressure() override { journal += "check "; }
  void updateTopProcesses() override { journal += "list "; }
  void scheduleBoostCheck(const MemoryStats& /*initial*/, int attempt, int most) override {
    journal += std::to_string(attempt) + " of " + std::to_string(most);
  }
  std::string journal;
};

TEST_F(Manager, CallsTheOperationsOfASubclass) {
  const auto manager = MemoryManager::create<Journalist>(fakes_.services());
  tick();
  manager->boostMemory();
  fakes_.time.runPending();
  EXPECT_EQ(manager->journal, "sample sample check list sample 0 of 10");
}

constexpr std::uint64_t editorBytes = 1'610'612'736;

class Alert : public Manager {
 protected:
  void startAt(double usage) {
    fakes_.counters.setUsage(usage);
    start();
  }
};

TEST_F(Alert, StaysAwayAtTheThresholdItselfAndWithoutASampleOrMemory) {
  startAt(85.0);
  tick();
  for (const auto& counts : {std::optional<PageCounts>(), std::optional(PageCounts{})}) {
    fakes_.counters.counts = counts;
    tick();
  }
  EXPECT_FALSE(manager_->shouldShowAlert());
  EXPECT_TRUE(fakes_.notifications.requests.empty());
  EXPECT_TRUE(fakes_.output.lines.empty());
  fakes_.counters.setUsage(85.04);
  tick();
  EXPECT_EQ(manager_->alertMessage(), "Memory usage is high (85.0%)");
}

TEST_F(Alert, NamesTheFirstApplicationOfTheListBuiltBefore) {
  fakes_.applications.add(10, "Editor", editorBytes);
  startAt(40.0);
  tick();
  fakes_.counters.setUsage(90.0);
  tick();
  EXPECT_EQ(manager_->alertMessage(), "Memory usage is high (90.0%)\nEditor is using 1536 MB");
  ASSERT_EQ(fakes_.notifications.requests.size(), 1U);
  const auto& content = fakes_.notifications.requests[0].content;
  EXPECT_EQ(content.title, "Memory Pressure High");
  EXPECT_EQ(content.body, "Memory usage is 90.0%. Editor is using 1536 MB");
  EXPECT_TRUE(content.defaultSound);
  EXPECT_EQ(fakes_.output.lines,
            (std::vector<std::string>{"Notification sent successfully: Memory Pressure High - "
                                      "Memory usage is 90.0%. Editor is using 1536 MB"}));
}

class Termination : public Manager {
 protected:
  void SetUp() override {
    fakes_.applications.add(7, "Editor", 50 << 20);
    fakes_.applications.onKill = [this](std::int32_t pid) { fakes_.applications.remove(pid); };
    start();
    manager_->updateTopProcesses();
    victim_ = manager_->topProcesses().at(0);
    manager_->setSelectedProcess(victim_);
  }

  ProcessInfo victim_;
};

TEST_F(Termination, HitsTheRecordsOwnProcessAndRefreshesLater) {
  manager_->killProcess(victim_);
  EXPECT_EQ(fakes_.applications.killed, (std::vector<std::int32_t>{7}));
  EXPECT_FALSE(manager_->selectedProcess());
  fakes_.time.advance(499ms);
  EXPECT_EQ(manager_->topProcesses().size(), 1U);
  fakes_.time.advance(1ms);
  EXPECT_TRUE(manager_->topProcesses().empty());
}

TEST_F(Termination, KeepsTheManagerUntilTheRefresh) {
  manager_->killProcess(victim_);
  const std::weak_ptr<MemoryManager> weak = manager_;
  manager_.reset();
  EXPECT_FALSE(weak.expired());
  fakes_.time.advance(500ms);
  EXPECT_EQ(fakes_.applications.collectionCount, 2);
  EXPECT_TRUE(weak.expired());
}

}  // namespace
}  // namespace orvane
