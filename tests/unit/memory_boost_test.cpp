#include "core/memory_boost.h"

#include "tests/unit/manager_case.h"

namespace orvane {
namespace {

/// Writes down each sleep with the claims held and the random numbers drawn by then.
struct WatchedQueue : BackgroundQueue {
  void async(Block /*block*/) override {}
  void sleep(Duration duration) override {
    sleeps.emplace_back(duration, claims.heldClaims, random.drawCount);
  }
  bool isEnding() override { return random.drawCount >= 600; }
  fakes::FakeMemoryClaims claims;
  fakes::FakeRandomSource random;
  std::vector<std::tuple<Duration, int, int>> sleeps;
};

TEST(BoostClaim, IsInactivePlusHalfOfFreeWrittenHeldForASecondAndReleased) {
  struct {
    MemoryStats initial;
    bool refuses;
    std::vector<std::size_t> claimedWords;
    int pages;
  } const cases[] = {{{.free = 8192}, false, {1024}, 1},
                     {{.free = 8208}, false, {1026}, 2},
                     {{.free = 9}, false, {1}, 1},
                     {{.free = 7}, false, {}, 0},
                     {{.free = 8000, .active = 1, .inactive = 4000}, true, {2000}, 0},
                     {{.free = 3U << 30, .inactive = 1U << 30}, true, {536'870'912}, 0},  // 2 GiB
                     {{.free = 8 * mebibyte}, false, {mebibyte}, 768}};  // the queue ends
  for (const auto& [initial, refuses, claimedWords, pages] : cases) {
    WatchedQueue queue;
    queue.claims.refuses = refuses;
    claimAndRelease(initial, queue.claims, queue.random, queue);
    EXPECT_EQ(queue.claims.claimedWords, claimedWords);
    const std::vector<std::tuple<Duration, int, int>> sleeps = {{1s, pages > 0 ? 1 : 0, pages},
                                                                {500ms, 0, pages}};
    EXPECT_EQ(queue.sleeps, sleeps) << initial.free;
    queue.claims.released.resize(
        std::min(queue.claims.released.size(), static_cast<std::size_t>(pages) * 1024));
    for (std::size_t index = 0; index < queue.claims.released.size(); ++index)
      ASSERT_EQ(queue.claims.released[index] != 0, index % 1024 == 0) << index;
  }
}

class Boost : public ManagerCase {
 protected:
  // A machine of 10,000 MB, so that 2 % of it are 200 MB.
  void setFree(double mebibytes) {
    const auto free = static_cast<std::uint32_t>(mebibytes * 256);
    fakes_.counters.counts = {.free = free, .active = 7'000 << 8, .inactive = (3'000 << 8) - free};
  }
  void SetUp() override {
    setFree(1000);
    fakes_.claims.refuses = true;  // the reports don't depend on the claim
    start();
    manager_->setSelectedProcess(ProcessInfo{});  // keeps the sampling tick off the list
  }
  /// The background step and the main-thread step that follows it.
  void boost() {
    manager_->boostMemory();
    fakes_.time.runPending();
  }
  std::vector<std::string> bodies() const {
    std::vector<std::string> texts;
    for (const auto& request : fakes_.notifications.requests) {
      EXPECT_EQ(request.content.title, "Boost Complete!");
      texts.push_back(request.content.body);
    }
    return texts;
  }
};

TEST_F(Boost, ClaimsInTheBackgroundAndIgnoresFurtherRequests) {
  fakes_.counters.counts = PageCounts{.free = 8, .active = 60};
  fakes_.claims.refuses = false;
  manager_->updateMemoryStats();
  manager_->boostMemory();
  manager_->boostMemory();
  EXPECT_THAT(fakes_.claims.claimedWords, IsEmpty()) << "not inside the call";
  EXPECT_TRUE(manager_->isProcessing());
  int posts = 0;
  fakes_.notificationCentre.addObserver("BoostCompleted", [&] {
    ++posts;
    EXPECT_FALSE(manager_->isProcessing());
    EXPECT_EQ(fakes_.claims.heldClaims, 0);
    EXPECT_EQ(manager_->currentStats()->timestamp, fakes_.time.now()) << "a new sample";
  });
  fakes_.time.runPending();
  EXPECT_EQ(posts, 1);
  EXPECT_THAT(fakes_.claims.claimedWords, ElementsAre(4096));
  fakes_.counters.counts.reset();
  manager_->updateMemoryStats();
  manager_->boostMemory();
  EXPECT_FALSE(manager_->isProcessing()) << "there is no sample";
}

TEST_F(Boost, ReportsALargeChangeAtOnceAndASmallGainAfterTenSeconds) {
  struct {
    double freeAfter;  // MB, where 1,000 were free before
    int second;        // of the report, 0 for none
    double amount;
    const char* text;
  } const cases[] = {{1060.75, 1, 60.75, "Freed 61 MB of memory"},
                     {1051, 1, 51, "Freed 51 MB of memory"},
                     {1050, 10, 50, "Freed 50 MB of memory"},
                     {1010.5, 10, 10.5, "Freed 10 MB of memory"},
                     {1010, 0, 0, ""},
                     {985, 0, 0, ""},
                     {800, 0, 0, ""},
                     {799, 1, 201, "Freed 201 MB of memory"}};
  for (const auto& [freeAfter, second, amount, text] : cases) {
    setFree(1000);
    manager_->updateMemoryStats();
    fakes_.notifications.requests.clear();
    manager_->boostMemory();
    EXPECT_EQ(manager_->lastBoostAmount(), 0.0) << "whatever the boost before gained";
    fakes_.time.runPending();
    setFree(freeAfter);
    for (const auto& [pause, passed] : {std::pair(999ms, 0), {1ms, 1}, {8999ms, 9}, {1ms, 10}}) {
      fakes_.time.advance(pause);
      const bool isReported = second > 0 && second <= passed;
      EXPECT_EQ(bodies(), std::vector<std::string>(isReported ? 1 : 0, text)) << freeAfter;
      EXPECT_EQ(manager_->lastBoostAmount(), isReported ? amount : 0.0) << freeAfter;
    }
    fakes_.time.advance(20s);
    EXPECT_EQ(bodies().size(), second > 0 ? 1U : 0U) << "one report at most";
  }
  const MemoryStats small{.free = 10 * mebibyte, .wired = 490 * mebibyte};
  EXPECT_EQ(significantGainAtCheck(small, {.free = 20 * mebibyte}), std::nullopt);
  EXPECT_EQ(significantGainAtCheck(small, {.free = 21 * mebibyte}), 11.0);
}

TEST_F(Boost, StopsCheckingWithoutASample) {
  boost();
  fakes_.counters.counts.reset();
  fakes_.time.advance(1s);
  setFree(3000);
  fakes_.time.advance(20s);
  EXPECT_EQ(manager_->lastBoostAmount(), 0.0);
  fakes_.counters.counts.reset();
  manager_->updateMemoryStats();
  manager_->scheduleBoostCheck({}, 10, 10);
  EXPECT_THAT(bodies(), IsEmpty());
}

TEST_F(Boost, RunsBesideTheChecksOfTheOneBefore) {
  boost();
  fakes_.time.advance(2s);
  setFree(1020);
  manager_->updateMemoryStats();
  boost();
  setFree(1075);  // 75 MB more than the first start, 55 MB more than the second
  fakes_.time.advance(2s);
  EXPECT_EQ(bodies().size(), 2U);
}

}  // namespace
}  // namespace orvane
