#include "core/memory_manager.h"

#include <functional>
#include <type_traits>
#include <utility>

#include "tests/unit/manager_case.h"

namespace orvane {
namespace {

using Manager = ManagerCase;

TEST_F(Manager, SamplesAtOnceAndEveryFiveSeconds) {
  start();
  EXPECT_FALSE(manager_->previousStats());
  EXPECT_EQ(manager_->lastBoostAmount(), 0.0);
  EXPECT_EQ(fakes_.applications.collectionCount, 0);
  const MemoryStats first = *manager_->currentStats();
  fakes_.time.advance(4999ms);
  EXPECT_EQ(fakes_.counters.readCount, 1);
  fakes_.time.advance(1ms);
  EXPECT_EQ(manager_->previousStats()->timestamp, first.timestamp);
  EXPECT_EQ(manager_->currentStats()->timestamp - first.timestamp, 5s);
  // While the counters can't be read there is no sample.
  const auto readable = std::exchange(fakes_.counters.counts, std::nullopt);
  tick();
  EXPECT_TRUE(!manager_->currentStats() && manager_->previousStats());
  EXPECT_EQ(samples(), 2U);
  fakes_.counters.counts = readable;
  tick();
  EXPECT_TRUE(manager_->currentStats() && !manager_->previousStats());
  EXPECT_EQ(samples(), 3U);
  EXPECT_EQ(fakes_.applications.collectionCount, 3);
}

TEST_F(Manager, LoadsTheStoredSortModeAndStoresEachAssignment) {
  using enum ProcessSortMode;
  const std::pair<std::optional<std::string>, ProcessSortMode> cases[] = {
      {"peak", peak}, {"average", average}, {"current", current}, {"Peak", current}, {{}, current}};
  for (const auto& [text, mode] : cases) {
    fakes_.preferences.texts.clear();
    if (text) fakes_.preferences.texts["processSortMode"] = *text;
    start();
    EXPECT_EQ(manager_->processSortMode(), mode) << text.value_or("none");
  }
  EXPECT_THAT(fakes_.preferences.writes, IsEmpty()) << "loading writes nothing";
  for (const std::string text : {"peak", "average", "current", "current"}) {
    manager_->setProcessSortMode(processSortModeFrom(text).value());
    EXPECT_EQ(rawValue(manager_->processSortMode()), text);
    EXPECT_EQ(fakes_.preferences.writes.back(), "processSortMode=" + text);
  }
  EXPECT_EQ(fakes_.applications.collectionCount, 4) << "each rebuilds the list";
}

TEST_F(Manager, FreezesTheListWhileAProcessIsSelected) {
  fakes_.applications.add(10, "Editor", 20 << 20);
  start();
  tick();
  const ProcessInfo selected = manager_->topProcesses().at(0);
  manager_->setSelectedProcess(selected);
  tick();
  EXPECT_EQ(manager_->topProcesses().at(0), selected);
  EXPECT_EQ(points(10), 1U);
  EXPECT_EQ(samples(), 3U);
  manager_->setProcessSortMode(ProcessSortMode::peak);
  EXPECT_NE(manager_->topProcesses().at(0), selected);
  EXPECT_EQ(manager_->selectedProcess(), selected);
  manager_->setSelectedProcess(std::nullopt);
  tick();
  EXPECT_EQ(points(10), 3U);
}

TEST_F(Manager, TakesItsStepsInOrderAndAnnouncesEachBefore) {
  fakes_.applications.add(1, "Gone", 20 << 20);
  start();
  tick();
  const auto victim = manager_->topProcesses().at(0);
  fakes_.applications.remove(1);
  for (const int pid : {2, 3}) fakes_.applications.add(pid, "New", 20 << 20);
  using Figures = std::vector<std::size_t>;
  // A figure as it is at each change that is announced while something is done.
  const auto at = [&](const std::function<std::size_t()>& figure, const Block& act) {
    Figures seen;
    const auto subscription = manager_->observe([&] { seen.push_back(figure()); });
    act();
    return seen;
  };
  const auto lengths = [&] {
    return manager_->processMemoryHistories().size() * 10 + manager_->topProcesses().size();
  };
  const auto writes = [&] { return fakes_.preferences.writes.size(); };
  const auto isProcessing = [&] { return manager_->isProcessing() ? 1U : 0U; };
  const auto& posted = fakes_.notifications.requests;
  const auto requests = [&] { return posted.size(); };
  const auto kills = [&] { return fakes_.applications.killed.size(); };
  const auto isSelected = [&] { return manager_->selectedProcess() ? 1U : 0U; };
  EXPECT_EQ(at(lengths, [&] { manager_->updateTopProcesses(); }), (Figures{11, 21, 31, 32}));
  EXPECT_EQ(at(writes, [&] { manager_->setProcessSortMode({}); }), (Figures{0, 1, 1}));
  EXPECT_EQ(at(isProcessing, [&] { manager_->boostMemory(); }), (Figures{0, 1}));
  EXPECT_EQ(at(isProcessing, [&] { fakes_.time.runPending(); }), (Figures{1, 1, 1}));
  fakes_.counters.setUsage(90.0);
  EXPECT_EQ(at(requests, [&] { fakes_.time.advance(1s); }), (Figures{0, 0, 0})) << "the gain";
  EXPECT_EQ(at(requests, [&] { tick(); }), (Figures{1, 1, 1, 2, 2, 2})) << "the alert";
  EXPECT_EQ(at(requests, [&] { tick(); }), (Figures{2, 2, 2, 2}));
  EXPECT_EQ(at(isSelected, [&] { manager_->setSelectedProcess(victim); }), (Figures{0}));
  EXPECT_EQ(at(kills, [&] { manager_->killProcess(victim); }), (Figures{1}));
  EXPECT_NE(posted.at(0).identifier, posted.at(1).identifier);
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
  void startMonitoring() override {
    journal += "start ";
    MemoryManager::startMonitoring();
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
  EXPECT_EQ(manager->journal, "sample start sample check list sample 0 of 10");
}

TEST_F(Manager, RaisesNoAlertAtTheThresholdItselfAndWithoutASampleOrMemory) {
  fakes_.counters.setUsage(85.0);
  start();
  tick();
  for (const auto& counts : {std::optional<PageCounts>(), std::optional(PageCounts{})}) {
    fakes_.counters.counts = counts;
    tick();
  }
  EXPECT_FALSE(manager_->shouldShowAlert());
  EXPECT_THAT(fakes_.notifications.requests, IsEmpty());
  fakes_.counters.setUsage(85.04);
  tick();
  EXPECT_EQ(manager_->alertMessage(), "Memory usage is high (85.0%)");
}

TEST_F(Manager, AlertsOnceNamingTheFirstOfTheListBuiltBefore) {
  for (const bool hasList : {true, false}) {
    fakes_.applications.applications.clear();
    fakes_.applications.add(10, "Editor", 1536 * mebibyte);
    fakes_.applications.add(11, "Small", 20 << 20);
    fakes_.notifications.requests.clear();
    fakes_.counters.setUsage(40.0);
    start();
    if (hasList) tick();
    fakes_.applications.add(12, "Later", 3072 * mebibyte);
    const std::string first = hasList ? "Editor is using 1536 MB" : "";
    for (const double usage : {90.0, 95.0, 40.0, 99.0}) {
      fakes_.counters.setUsage(usage);
      tick();
      EXPECT_EQ(manager_->alertMessage(),
                "Memory usage is high (90.0%)" + (hasList ? "\n" + first : ""));
      EXPECT_TRUE(manager_->shouldShowAlert());
    }
    ASSERT_EQ(fakes_.notifications.requests.size(), 1U);
    const auto& content = fakes_.notifications.requests[0].content;
    EXPECT_EQ(content.title, "Memory Pressure High");
    EXPECT_EQ(content.body, "Memory usage is 90.0%" + (hasList ? ". " + first : ""));
    EXPECT_TRUE(content.defaultSound);
    fakes_.notifications.error = "no daemon";  // for the second one
  }
  EXPECT_THAT(fakes_.output.lines,
              ElementsAre("Notification sent successfully: Memory Pressure High - "
                          "Memory usage is 90.0%. Editor is using 1536 MB",
                          "Error sending notification: no daemon"));
}

TEST_F(Manager, EndsTheRecordsOwnProcessAndRefreshesHalfASecondLater) {
  fakes_.applications.add(7, "Editor", 50 << 20);
  start();
  manager_->updateTopProcesses();
  const ProcessInfo victim = manager_->topProcesses().at(0);
  manager_->setSelectedProcess(victim);
  manager_->killProcess(victim);
  EXPECT_THAT(fakes_.applications.killed, ElementsAre(7));
  EXPECT_FALSE(manager_->selectedProcess());
  const std::weak_ptr<MemoryManager> weak = manager_;
  manager_.reset();
  fakes_.time.advance(499ms);
  EXPECT_EQ(fakes_.applications.collectionCount, 1);
  EXPECT_FALSE(weak.expired()) << "kept until the refresh";
  fakes_.time.advance(1ms);
  EXPECT_EQ(fakes_.applications.collectionCount, 2);
  EXPECT_TRUE(weak.expired());
}

}  // namespace
}  // namespace orvane
