#include "core/memory_boost.h"

#include <gtest/gtest.h>

#include "core/memory_manager.h"
#include "tests/fakes/fake_services.h"

namespace orvane {
namespace {

using namespace std::chrono_literals;

constexpr std::uint64_t gibibyte = 1ULL << 30;

TEST(BoostClaim, IsInactivePlusHalfOfFreeUpToTheCeiling) {
  const std::pair<MemoryStats, std::size_t> cases[] = {
      {{.free = 3 * gibibyte, .inactive = gibibyte}, 536'870'912},
      {{.free = gibibyte, .inactive = gibibyte}, 3 * gibibyte / 2 / 4},
      {{.free = 6}, 0},
      {{.free = 9}, 1},
      {{}, 0}};
  for (const auto& [stats, words] : cases) EXPECT_EQ(boostClaimWords(stats), words);
}

class Boost : public testing::Test {
 protected:
  static constexpr std::uint32_t pagesPerMB = 256;

  // A machine of 10,000 MB, so that 2 % of it are 200 MB.
  void setFree(double mebibytes) {
    const auto pages = static_cast<std::uint32_t>(mebibytes * pagesPerMB);
    fakes_.counters.counts = PageCounts{
        .free = pages, .active = 7'000 * pagesPerMB, .inactive = 3'000 * pagesPerMB - pages};
  }
  void SetUp() override {
    setFree(1000);
    fakes_.claims.refuses = true;  // the reports don't depend on the claim
    manager_ = MemoryManager::create(fakes_.services());
    manager_->setSelectedProcess(ProcessInfo{});  // keeps the sampling tick off the list
  }
  /// Runs the background step and the main-thread step that follows it.
  void finishBackgroundStep() { fakes_.time.runPending(); }
  std::vector<std::string> bodies() const {
    std::vector<std::string> texts;
    for (const auto& request : fakes_.notifications.requests) {
      EXPECT_EQ(request.content.title, "Boost Complete!");
      texts.push_back(request.content.body);
    }
    return texts;
  }

  fakes::FakeServices fakes_;
  std::shared_ptr<MemoryManager> manager_;
};

TEST_F(Boost, WritesEveryPageHoldsAndReleases) {
  fakes_.counters.counts = PageCounts{.free = 40 * pagesPerMB, .active = 60 * pagesPerMB};
  fakes_.claims.refuses = false;
  manager_->updateMemoryStats();
  manager_->boostMemory();
  EXPECT_TRUE(fakes_.claims.claimedWords.empty()) << "not inside the call";
  bool processingAtPost = true;
  fakes_.notificationCentre.addObserver("BoostCompleted",
                                        [&] { processingAtPost = manager_->isProcessing(); });
  finishBackgroundStep();
  EXPECT_EQ(fakes_.claims.claimedWords, (std::vector<std::size_t>{20 * 1048576 / 4}));
  EXPECT_EQ(fakes_.claims.heldClaims, 0);
  EXPECT_EQ(fakes_.time.sleeps(), (std::vector<Duration>{1s, 500ms}));
  EXPECT_EQ(fakes_.random.drawCount, 20 * 256);
  EXPECT_FALSE(processingAtPost);
  std::size_t written = 0;
  for (std::size_t index = 0; index < fakes_.claims.released.size(); ++index) {
    const bool isWritten = fakes_.claims.released[index] != 0;
    ASSERT_FALSE(isWritten && index % 1024 != 0) << index;
    written += isWritten ? 1 : 0;
  }
  EXPECT_GT(written, 20U * 256 - 5);  // a random word may be 0
}

TEST_F(Boost, IgnoresARequestWhileRunningOrWithoutASample) {
  manager_->boostMemory();
  manager_->boostMemory();
  EXPECT_TRUE(manager_->isProcessing());
  finishBackgroundStep();
  EXPECT_EQ(fakes_.claims.claimedWords.size(), 1U);
  EXPECT_FALSE(manager_->isProcessing()) << "though no memory could be had";
  fakes_.counters.counts.reset();
  manager_->updateMemoryStats();
  manager_->boostMemory();
  EXPECT_FALSE(manager_->isProcessing());
}

struct CheckCase {
  double freeAfter = 0;            // MB, where 1,000 were free before
  std::optional<double> reported;  // MB
};

TEST_F(Boost, ReportsASignificantChangeAtTheFirstCheck) {
  const CheckCase cases[] = {{1060, 60}, {1051, 51}, {1050, {}}, {990, {}}, {700, 300}, {800, {}}};
  for (const auto& check : cases) {
    setFree(1000);
    manager_->updateMemoryStats();
    fakes_.notifications.requests.clear();
    manager_->boostMemory();
    finishBackgroundStep();
    setFree(check.freeAfter);
    fakes_.time.advance(999ms);
    EXPECT_TRUE(bodies().empty());
    fakes_.time.advance(1ms);
    EXPECT_EQ(manager_->lastBoostAmount(), check.reported.value_or(0.0)) << check.freeAfter;
    EXPECT_EQ(bodies().size(), check.reported ? 1U : 0U) << check.freeAfter;
    setFree(1000);
    fakes_.time.advance(20s);
  }
}

TEST_F(Boost, EndsTheChecksAtTheFirstGain) {
  manager_->boostMemory();
  finishBackgroundStep();
  fakes_.time.advance(3s);
  setFree(1060);
  fakes_.time.advance(20s);
  EXPECT_EQ(bodies(), (std::vector<std::string>{"Freed 60 MB of memory"}));
  EXPECT_EQ(manager_->lastBoostAmount(), 60.0);
}

TEST_F(Boost, JudgesSmallGainsAfterTheTenthCheck) {
  for (const double gain : {10.0, 10.5}) {
    setFree(1000);
    manager_->updateMemoryStats();
    manager_->boostMemory();
    finishBackgroundStep();
    setFree(1000 + gain);
    fakes_.time.advance(9900ms);
    EXPECT_TRUE(bodies().empty());
    fakes_.time.advance(200ms);
    EXPECT_EQ(bodies().size(), gain > 10.0 ? 1U : 0U) << gain;
  }
  EXPECT_EQ(manager_->lastBoostAmount(), 10.5);
}

TEST_F(Boost, StopsCheckingWithoutASample) {
  manager_->boostMemory();
  finishBackgroundStep();
  fakes_.counters.counts.reset();
  fakes_.time.advance(1s);
  setFree(3000);
  fakes_.time.advance(20s);
  EXPECT_TRUE(bodies().empty());
  EXPECT_EQ(manager_->lastBoostAmount(), 0.0);
}

TEST_F(Boost, RunsBesideTheChecksOfTheOneBefore) {
  manager_->boostMemory();
  finishBackgroundStep();
  fakes_.time.advance(2s);
  setFree(1020);
  manager_->updateMemoryStats();
  manager_->boostMemory();
  finishBackgroundStep();
  setFree(1075);  // 75 MB more than the first start, 55 MB more than the second
  fakes_.time.advance(2s);
  EXPECT_EQ(bodies().size(), 2U);
}

}  // namespace
}  // namespace orvane
