#include "core/process_collection.h"

#include <gtest/gtest.h>

#include <set>

#include "core/memory_manager.h"
#include "tests/fakes/fake_services.h"

namespace orvane {
namespace {

using namespace std::chrono_literals;

constexpr std::uint64_t mebibyte = 1048576;

class Collection : public testing::Test {
 protected:
  void SetUp() override { manager_ = MemoryManager::create(fakes_.services()); }
  const std::vector<ProcessInfo>& collect() {
    manager_->updateTopProcesses();
    return manager_->topProcesses();
  }
  std::vector<std::string> names() {
    std::vector<std::string> list;
    for (const auto& process : manager_->topProcesses()) list.push_back(process.name);
    return list;
  }

  fakes::FakeServices fakes_;
  std::shared_ptr<MemoryManager> manager_;
};

TEST_F(Collection, MakesARecordOfAnApplication) {
  fakes_.applications.add(42, "Editor", 100 * mebibyte, 7);
  fakes_.applications.add(43, "Small", 10'485'760);
  fakes_.applications.applications[0].icon = ApplicationIcon{"org.example.Editor"};
  fakes_.applications.paths[42] = std::string("/opt/\xFF/editor\0junk", 18);
  EXPECT_EQ(collect().size(), 1U) << "none at the threshold or below";
  const ProcessInfo process = collect().at(0);
  EXPECT_EQ(process.name, "Editor");
  EXPECT_EQ(process.pid, 42);
  EXPECT_EQ(process.memoryUsage, 100 * mebibyte);
  EXPECT_EQ(process.virtualMemory, 400 * mebibyte);
  EXPECT_EQ(process.threadCount, 7);
  EXPECT_EQ(process.icon->name, "org.example.Editor");
  EXPECT_EQ(process.processPath, "/opt/\xEF\xBF\xBD/editor");
  fakes_.applications.figures[42].virtualSize = 99 * mebibyte;
  EXPECT_EQ(collect().at(0).virtualMemory, 300 * mebibyte) << "can't be below the resident size";
  EXPECT_NE(collect().at(0).id, process.id);
}

TEST_F(Collection, EstimatesWhatCannotBeInspected) {
  fakes_.applications.applications = {
      {.processIdentifier = 1, .activationPolicy = ActivationPolicy::regular},
      {.processIdentifier = 2, .activationPolicy = ActivationPolicy::accessory}};
  fakes_.applications.figures[2] = {.virtualSize = 5, .residentSize = 0, .threadCount = 3};
  std::set<std::uint64_t> sizes[2];
  for (int round = 0; round < 300; ++round) {
    for (const auto& process : collect()) {
      EXPECT_EQ(process.virtualMemory, 3 * process.memoryUsage);
      EXPECT_EQ(process.name, "Unknown");
      EXPECT_EQ(process.processPath, "");
      EXPECT_EQ(process.threadCount, process.pid == 1 ? 0 : 3);
      sizes[process.pid - 1].insert(process.memoryUsage);
    }
  }
  EXPECT_GE(*sizes[0].begin(), 50'000'000U);
  EXPECT_LE(*sizes[0].rbegin(), 500'000'000U);
  EXPECT_GT(*sizes[0].rbegin(), 400'000'000U);
  EXPECT_LE(*sizes[1].rbegin(), 100'000'000U);
}

TEST_F(Collection, ListsTenAndRemembersAll) {
  std::uint64_t size = 20 * mebibyte;
  for (std::int32_t pid = 1; pid <= 12; ++pid) {
    fakes_.applications.add(pid, std::to_string(pid), size += mebibyte);
  }
  ASSERT_EQ(collect().size(), 10U);
  EXPECT_EQ(names().front(), "12");
  EXPECT_EQ(names().back(), "3");
  EXPECT_EQ(manager_->processMemoryHistories().size(), 12U);
}

TEST_F(Collection, ForgetsHistoriesAfterFiveMinutes) {
  fakes_.applications.add(1, "Gone", 20 * mebibyte);
  collect();
  manager_->setSelectedProcess(ProcessInfo{});
  fakes_.applications.remove(1);
  fakes_.time.advance(299s);
  collect();
  EXPECT_TRUE(manager_->processMemoryHistories().contains(1));
  EXPECT_TRUE(manager_->topProcesses().empty());
  fakes_.time.advance(1s);
  collect();
  EXPECT_FALSE(manager_->processMemoryHistories().contains(1));
}

}  // namespace
}  // namespace orvane
