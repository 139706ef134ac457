#include <gtest/gtest.h>

#include "core/memory_manager.h"
#include "tests/fakes/fake_services.h"

namespace orvane {
namespace {

using namespace std::chrono_literals;

struct Handle : ProcessHandle {};

class Termination : public testing::Test {
 protected:
  void SetUp() override {
    fakes_.applications.add(7, "Editor", 50 << 20);
    fakes_.applications.applications[0].handle = handle_;
    fakes_.signals.onKill = [this](std::int32_t pid) { fakes_.applications.remove(pid); };
    manager_ = MemoryManager::create(fakes_.services());
    manager_->updateTopProcesses();
    victim_ = manager_->topProcesses().at(0);
    manager_->setSelectedProcess(victim_);
  }

  fakes::FakeServices fakes_;
  std::shared_ptr<Handle> handle_ = std::make_shared<Handle>();
  std::shared_ptr<MemoryManager> manager_;
  ProcessInfo victim_;
};

TEST_F(Termination, HitsTheRecordsOwnProcessAndRefreshesLater) {
  manager_->killProcess(victim_);
  EXPECT_EQ(fakes_.signals.killed, (std::vector<std::int32_t>{7}));
  EXPECT_EQ(fakes_.signals.handles, (std::vector<const ProcessHandle*>{handle_.get()}));
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
