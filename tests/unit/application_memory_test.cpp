// What an application holds, and which of its processes is read next.
#include "platform/linux/applications/application_memory.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <deque>

namespace orvane {
namespace {

using std::chrono::seconds;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::uint64_t mb = 1'000'000;

/// An application out of processes of so many million bytes.
struct Tree {
  explicit Tree(std::initializer_list<std::uint64_t> own = {}) {
    for (const std::uint64_t size : own) add(size, 0);
  }

  std::deque<Process> processes;
  std::vector<Process*> members;
  ReadingState state;

  Process& add(std::uint64_t own, std::uint64_t shared, const Process* forkedFrom = nullptr) {
    Process& process = processes.emplace_back();
    process.serial = ++lastSerial;
    process.residentSize = (own + shared) * mb;
    process.sharedSize = shared * mb;
    process.forkedFrom = forkedFrom;
    members.push_back(&process);
    return process;
  }

  [[nodiscard]] std::uint64_t figure() const { return memoryFigure(members) / mb; }
  [[nodiscard]] ReadingCandidate candidate() {
    return {.members = members, .figure = currentFigure(members, state), .state = &state};
  }

  static inline std::uint64_t lastSerial = 0;
};

ProportionalReading reading(const Process& process, std::optional<std::uint64_t> megabytes,
                            ReadingTime when = {}) {
  return {.proportionalSize = megabytes ? std::optional(*megabytes * mb) : std::nullopt,
          .ownSize = process.ownSize(),
          .sharedSize = process.sharedSize,
          .taken = when};
}

TEST(ApplicationMemory, IsEstimatedFromWhatIsSharedByNobody) {
  Tree browser;
  browser.add(100, 60);
  browser.add(20, 900);  // its picture store, which the first process never touches
  EXPECT_EQ(browser.figure(), 1020U);

  Tree server;
  const Process& parent = server.add(700, 5);
  server.add(700, 4, &parent);
  server.add(730, 4, &parent);
  server.add(690, 4, &parent);
  EXPECT_EQ(server.figure(), 735U) << "forks hold their parent's pages";

  // A short-lived process of it maps all that the others have filled by parts; a worker that took
  // part in its parent's pages is gone.
  Tree store;
  for (int i = 0; i < 2; ++i)
    store.add(0, 100).reading = ProportionalReading{100 * mb, 0, 100 * mb, {}};
  store.add(3, 200);
  EXPECT_EQ(store.figure(), 203U);
  Process& loaded = store.add(700, 0);
  loaded.reading = reading(loaded, 80);
  EXPECT_EQ(store.figure(), 283U);
  store.members.back()->familyInside = true;
  EXPECT_EQ(store.figure(), 700U);

  EXPECT_EQ(memoryFigure(Tree{0}.members), static_cast<std::uint64_t>(::sysconf(_SC_PAGESIZE)));
}

TEST(ApplicationMemory, FollowsTheReadingsAndWhatChangedSince) {
  Tree tree;
  Process& parent = tree.add(700, 10);
  Process& worker = tree.add(700, 10, &parent);
  parent.reading = reading(parent, 360);
  worker.reading = reading(worker, 350);
  EXPECT_EQ(tree.figure(), 710U);
  worker.residentSize += 90 * mb;
  EXPECT_EQ(tree.figure(), 800U);
  parent.residentSize -= 500 * mb;
  EXPECT_EQ(tree.figure(), 440U) << "what is gone can't be more than there was";
  parent.sharedSize += 150 * mb;  // a part of the 200 became shared
  EXPECT_EQ(tree.figure(), 590U);
  tree.add(200, 10, &parent);
  EXPECT_EQ(tree.figure(), 740U) << "a new worker: only what it has more than its parent";
  worker.reading = reading(worker, {});
  EXPECT_EQ(tree.figure(), 1040U) << "refused: the estimate stands";
}

class NextReadings : public testing::Test {
 protected:
  /// The resident sizes of the processes read next, each found to hold half of that.
  std::vector<std::uint64_t> next(std::initializer_list<Tree*> trees) {
    std::vector<ReadingCandidate> candidates;
    for (Tree* tree : trees) candidates.push_back(tree->candidate());
    std::vector<std::uint64_t> sizes;
    for (Process* process : nextReadings(candidates, pace_, now_)) {
      sizes.push_back(process->residentSize / mb);
      process->pending = reading(*process, sizes.back() / 2, now_);
    }
    return sizes;
  }

  ReadingPace pace_{seconds(60), seconds(20), 1000 * mb, 5000 * mb, 10};
  ReadingTime now_{seconds(5000)};
};

TEST_F(NextReadings, BeginWithWhatIsLargeAndUnknown) {
  Tree small{99};
  Tree shells{50, 51};  // small ones, but two of them
  Tree large{800};
  EXPECT_THAT(next({&small, &shells, &large}), ElementsAre(800, 50, 51));
  EXPECT_THAT(next({&small, &shells, &large}), IsEmpty());
}

TEST_F(NextReadings, StayInTheBudgetAndGoOnWhereTheyEnded) {
  Tree tree{401, 402, 403, 404};
  Tree other{1500};
  EXPECT_THAT(next({&tree, &other}), ElementsAre(401, 402));
  EXPECT_EQ(tree.candidate().figure, 1610 * mb) << "a part of the readings tells nothing";
  tree.add(300, 0);  // new processes don't keep a round from ending
  EXPECT_THAT(next({&tree, &other}), ElementsAre(403, 404));
  EXPECT_THAT(next({&tree, &other}), ElementsAre(1500)) << "one process can't be cut in pieces";
  // A machine full of large applications is read in time all the same.
  std::deque<Tree> many(30);
  std::vector<ReadingCandidate> candidates;
  for (Tree& each : many) {
    each.add(600, 0);
    candidates.push_back(each.candidate());
  }
  EXPECT_EQ(nextReadings(candidates, pace_, now_).size(), 3U) << "a tenth of 18 GB";
}

TEST_F(NextReadings, AreTakenAgainWhenTheFigureMovedOrTheyAreOld) {
  Tree steady{301};
  Tree moving{300};
  Process& growing = moving.processes[0];
  EXPECT_THAT(next({&steady, &moving}), ElementsAre(301, 300));
  const struct {
    std::uint64_t growth;
    seconds pause;
    std::vector<std::uint64_t> read;
  } steps[] = {{0, seconds(0), {}},      {14, seconds(20), {}},  // less than a tenth of 150 MB
               {6, seconds(0), {320}},   {0, seconds(0), {}},   {900, seconds(0), {}},  // too soon
               {0, seconds(39), {1220}}, {0, seconds(1), {301}}};
  for (const auto& [growth, pause, read] : steps) {
    growing.residentSize += growth * mb;
    now_ += pause;
    EXPECT_EQ(next({&steady, &moving}), read) << growing.residentSize / mb;
  }
}

TEST_F(NextReadings, GoOnWhenTheApplicationBecomesSmall) {
  Tree tree{60};
  tree.add(61, 0, &tree.processes[0]);
  EXPECT_THAT(next({&tree}), ElementsAre(60, 61));
  EXPECT_THAT(next({&tree}), IsEmpty());
  tree.members.pop_back();  // whose half of the pages is the parent's now
  EXPECT_EQ(tree.figure(), 30U);
  now_ += seconds(20);
  EXPECT_THAT(next({&tree}), ElementsAre(60));
}

TEST_F(NextReadings, OfHugeProcessesAreRarer) {
  Tree tree{17180};
  EXPECT_THAT(next({&tree}), ElementsAre(17180));
  now_ += seconds(239);
  EXPECT_THAT(next({&tree}), IsEmpty());
  now_ += seconds(2);
  EXPECT_THAT(next({&tree}), ElementsAre(17180));
}

TEST(ReadingPace, IsSlowerWhileNobodyLooks) {
  const auto watched = ReadingPace::of(true);
  const auto hidden = ReadingPace::of(false);
  EXPECT_LT(watched.maximumAge + seconds(5) * watched.ticks, seconds(60));
  EXPECT_LT(hidden.maximumAge + seconds(5) * hidden.ticks, seconds(300));
  EXPECT_LT(hidden.budget, watched.budget);
  EXPECT_GT(hidden.shortestInterval, watched.shortestInterval);
}

}  // namespace
}  // namespace orvane
