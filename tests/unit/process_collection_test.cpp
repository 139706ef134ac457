#include "core/process_collection.h"

#include <array>
#include <deque>
#include <optional>

#include "tests/unit/manager_case.h"

namespace orvane {
namespace {

class Collection : public ManagerCase {
 protected:
  Collection() { start(); }

  const std::vector<ProcessInfo>& collect() {
    manager_->updateTopProcesses();
    return manager_->topProcesses();
  }
  std::vector<std::string> names() {
    std::vector<std::string> list;
    for (const auto& process : manager_->topProcesses()) list.push_back(process.name);
    return list;
  }
};

TEST_F(Collection, MakesARecordOfAnApplication) {
  fakes_.applications.add(42, "Editor", 100 * mebibyte, 7);
  auto& application = fakes_.applications.applications[0];
  application.icon = ApplicationIcon{"org.example.Editor"};
  application.distinction = "editor --new";
  fakes_.applications.paths[42] = std::string("/opt/\xFF/editor\0junk", 18);
  ASSERT_EQ(collect().size(), 1U);
  const ProcessInfo process = collect().at(0);
  EXPECT_EQ(process.name, "Editor");
  EXPECT_EQ(process.pid, 42);
  EXPECT_EQ(process.virtualMemory, 400 * mebibyte);
  EXPECT_EQ(process.threadCount, 7);
  EXPECT_EQ(process.cpuUsage + process.ports, 0.0) << "nothing measures these";
  EXPECT_EQ(process.icon->name, "org.example.Editor");
  EXPECT_EQ(process.processPath, "/opt/\xEF\xBF\xBD/editor");
  EXPECT_EQ(process.distinction, "editor --new");
  EXPECT_EQ(manager_->processMemoryHistories().at(42)->dataPoints().at(1).memoryMB, 100.0);
  EXPECT_NE(collect().at(0), process) << "each collection makes new records";
  ProcessInfo copy = process;
  copy.name.clear();
  EXPECT_EQ(copy, process) << "the same record whatever it says";
  EXPECT_EQ(std::hash<ProcessInfo>{}(copy), std::hash<ProcessInfo>{}(process));
}

TEST(UniformNumber, IncludesBothEndsAndDrawsAgainWhatWouldBeBiased) {
  // 2^64 mod 10 is 6: the numbers below would make some results likelier.
  fakes::FakeRandomSource random;
  random.numbers = {5, 0, 6, 19, 20, ~0ULL};
  for (const auto expected : {36U, 39U, 30U, 35U})
    EXPECT_EQ(uniformNumber(random, 30, 39), expected);
}

TEST_F(Collection, ListsWhatIsAboveTheThresholdAndEstimatesWhatCannotBeInspected) {
  using enum ActivationPolicy;
  struct {
    ActivationPolicy policy;
    std::optional<std::uint64_t> resident, reserved;
    std::deque<std::uint64_t> drawn;  // an estimate is one of 450,000,001 or 90,000,001 sizes
    std::uint64_t listedSize, listedVirtualSize;  // 0 when it is not listed
  } const cases[] = {{regular, 20 * mebibyte, 20 * mebibyte, {}, 20 * mebibyte, 20 * mebibyte},
                     {regular, 20 * mebibyte, 20 * mebibyte - 1, {}, 20 * mebibyte, 60 * mebibyte},
                     {accessory, 10'485'761, {}, {}, 10'485'761, 31'457'283},
                     {regular, 10'485'760, {}, {}, 0, 0},
                     {regular, 1, {}, {}, 0, 0},
                     {regular, 0, 5, {450'000'001}, 50'000'000, 150'000'000},
                     {regular, {}, {}, {900'000'001}, 500'000'000, 1'500'000'000},
                     {accessory, {}, {}, {90'000'001}, 0, 0},
                     {accessory, 0, 5, {90'485'762}, 10'485'761, 31'457'283},
                     {prohibited, {}, {}, {180'000'001}, 100'000'000, 300'000'000}};
  std::int32_t pid = 0;
  for (const auto& [policy, resident, reserved, drawn, size, virtualSize] : cases) {
    fakes_.applications.applications = {{.processIdentifier = ++pid, .activationPolicy = policy}};
    if (resident) fakes_.applications.figures[pid] = {reserved, resident, {}};
    fakes_.random.numbers = drawn;
    collect();
    EXPECT_EQ(manager_->processMemoryHistories().contains(pid), size > 0) << pid;
    ASSERT_EQ(names(), std::vector<std::string>(size > 0 ? 1 : 0, "Unknown")) << pid;
    if (size == 0) continue;
    const ProcessInfo& process = manager_->topProcesses()[0];
    EXPECT_EQ((std::array{process.memoryUsage, process.privateMemory, process.virtualMemory}),
              (std::array{size, size, virtualSize}))
        << pid;
    EXPECT_EQ(process.threadCount, 0) << pid;
    EXPECT_EQ(process.processPath, "") << pid;
  }
}

TEST_F(Collection, ListsTheFirstTenByTheModeAndRemembersAll) {
  for (std::int32_t pid = 1; pid <= 30; ++pid)
    fakes_.applications.add(pid, std::to_string(pid), (pid == 29 ? 800 : 20) * mebibyte);
  collect();
  fakes_.applications.setResident(29, 15 * mebibyte);
  fakes_.applications.setResident(30, 300 * mebibyte);
  // The averages are 407.5 and 160 MB at first; what is equal keeps the desktop's order.
  const std::pair<ProcessSortMode, std::vector<std::string>> cases[] = {
      {ProcessSortMode::average, {"29", "30", "1", "2", "3", "4", "5", "6", "7", "8"}},
      {ProcessSortMode::current, {"30", "1", "2", "3", "4", "5", "6", "7", "8", "9"}},
      {ProcessSortMode::peak, {"29", "30", "1", "2", "3", "4", "5", "6", "7", "8"}}};
  for (const auto& [mode, first] : cases) {
    manager_->setProcessSortMode(mode);
    EXPECT_EQ(names(), first) << rawValue(mode);
  }
  const ProcessInfo once = manager_->topProcesses().at(0);
  EXPECT_EQ(manager_->sortMetric(once, ProcessSortMode::current), 15.0);
  EXPECT_EQ(manager_->sortMetric(once, ProcessSortMode::average), 211.25);
  EXPECT_EQ(manager_->sortMetric(once, ProcessSortMode::peak), 800.0);
  ProcessInfo unknown = once;
  unknown.pid = 99;  // has no history
  for (const auto& [mode, first] : cases) EXPECT_EQ(manager_->sortMetric(unknown, mode), 15.0);
  EXPECT_EQ(manager_->processMemoryHistories().size(), 30U);
}

TEST_F(Collection, ForgetsHistoriesAfterFiveMinutes) {
  for (const int pid : {1, 2}) fakes_.applications.add(pid, "Editor", 20 * mebibyte);
  collect();
  manager_->setSelectedProcess(ProcessInfo{});
  fakes_.applications.remove(1);
  for (const auto& [pause, isKept] : {std::pair(299s, true), {1s, false}, {400s, false}}) {
    fakes_.time.advance(pause);
    EXPECT_EQ(collect().size(), 1U);
    EXPECT_EQ(manager_->processMemoryHistories().contains(1), isKept);
  }
  EXPECT_EQ(points(2), 4U) << "what is still listed keeps its history after any pause";
}

}  // namespace
}  // namespace orvane
