// What an application holds, and which of its processes is read next.
#include "platform/linux/applications/application_memory.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <deque>

namespace orvane {
namespace {

using std::chrono::seconds;

constexpr std::uint64_t mb = 1'000'000;

/// An application out of processes of so many million bytes.
struct Tree {
  std::deque<Process> processes;
  std::vector<ApplicationMember> members;
  ReadingState state;

  Process& add(std::uint64_t own, std::uint64_t shared, const Process* forkedFrom = nullptr) {
    Process& process = processes.emplace_back();
    process.serial = ++lastSerial;
    process.residentSize = (own + shared) * mb;
    process.sharedSize = shared * mb;
    members.push_back({.process = &process, .forkedFrom = forkedFrom});
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
  store.members.back().familyInside = true;
  EXPECT_EQ(store.figure(), 700U);

  Tree swapped;
  swapped.add(0, 0);
  EXPECT_EQ(memoryFigure(swapped.members), static_cast<std::uint64_t>(::sysconf(_SC_PAGESIZE)));
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
  /// The processes read next, in order, each found to hold half of its resident size.
  std::vector<Process*> next(std::initializer_list<Tree*> trees) {
    std::vector<ReadingCandidate> candidates;
    for (Tree* tree : trees) candidates.push_back(tree->candidate());
    auto chosen = nextReadings(candidates, pace_, now_);
    for (Process* process : chosen) {
      process->pending = reading(*process, process->residentSize / mb / 2, now_);
    }
    return chosen;
  }

  ReadingPace pace_{seconds(60), seconds(20), 1000 * mb, 5000 * mb, 10};
  ReadingTime now_{seconds(5000)};
};

using Processes = std::vector<Process*>;

TEST_F(NextReadings, BeginWithWhatIsLargeAndUnknown) {
  Tree small;
  small.add(99, 0);
  Tree shells;  // small ones, but many of them
  Process& shell = shells.add(50, 0);
  Process& fork = shells.add(50, 1, &shell);
  Tree large;
  Process& program = large.add(800, 0);
  EXPECT_EQ(next({&small, &shells, &large}), (Processes{&program, &shell, &fork}));
  EXPECT_EQ(next({&small, &shells, &large}), Processes{});
}

TEST_F(NextReadings, StayInTheBudgetAndGoOnWhereTheyEnded) {
  Tree tree;
  for (int i = 0; i < 4; ++i) tree.add(400, 0);
  Tree other;
  Process& single = other.add(1500, 0);
  const auto at = [&](std::size_t i) { return tree.members[i].process; };
  EXPECT_EQ(next({&tree, &other}), (Processes{at(0), at(1)}));
  EXPECT_EQ(tree.candidate().figure, 1600 * mb) << "a part of the readings tells nothing";
  tree.add(300, 0);  // new processes don't keep a round from ending
  EXPECT_EQ(next({&tree, &other}), (Processes{at(2), at(3)}));
  EXPECT_EQ(next({&tree, &other}), (Processes{&single})) << "one process can't be cut in pieces";
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
  Tree steady;
  Process& constant = steady.add(300, 0);
  Tree moving;
  Process& growing = moving.add(300, 0);
  EXPECT_EQ(next({&steady, &moving}).size(), 2U);
  EXPECT_EQ(next({&steady, &moving}), Processes{});
  growing.residentSize += 14 * mb;  // less than a tenth of 150 MB
  now_ += seconds(20);
  EXPECT_EQ(next({&steady, &moving}), Processes{});
  growing.residentSize += 6 * mb;
  EXPECT_EQ(next({&steady, &moving}), Processes{&growing});
  EXPECT_EQ(next({&steady, &moving}), Processes{});
  growing.residentSize += 900 * mb;
  EXPECT_EQ(next({&steady, &moving}), Processes{}) << "too soon";
  now_ += seconds(39);
  EXPECT_EQ(next({&steady, &moving}), Processes{&growing});
  now_ += seconds(1);
  EXPECT_EQ(next({&steady, &moving}), Processes{&constant});
}

TEST_F(NextReadings, GoOnWhenTheApplicationBecomesSmall) {
  Tree tree;
  Process& parent = tree.add(60, 0);
  tree.add(60, 0, &parent);
  EXPECT_EQ(next({&tree}).size(), 2U);
  EXPECT_EQ(next({&tree}), Processes{});
  tree.members.pop_back();  // whose half of the pages is the parent's now
  EXPECT_EQ(tree.figure(), 30U);
  now_ += seconds(20);
  EXPECT_EQ(next({&tree}), Processes{&parent});
}

TEST_F(NextReadings, OfHugeProcessesAreRarer) {
  Tree tree;
  Process& huge = tree.add(4 * 4295, 0);
  EXPECT_EQ(next({&tree}), Processes{&huge});
  now_ += seconds(239);
  EXPECT_EQ(next({&tree}), Processes{});
  now_ += seconds(2);
  EXPECT_EQ(next({&tree}), Processes{&huge});
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
