#include <gtest/gtest.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QThread>
#include <chrono>
#include <string>
#include <thread>
#include <vector>

#include "platform/linux/linux_dispatch.h"
#include "tests/fakes/virtual_time.h"

namespace orvane {
namespace {

using SteadyClock = std::chrono::steady_clock;

/// The real queue and timers, with a real clock.
struct LinuxSubject {
  LinuxMainQueue queue;
  LinuxTimerService timers;

  void advance(Duration duration) {
    const auto end = SteadyClock::now() + duration;
    do {
      QCoreApplication::processEvents();
      QThread::usleep(200);
    } while (SteadyClock::now() < end);
    QCoreApplication::processEvents();
  }
};

struct FakeSubject {
  fakes::VirtualTime queue;
  fakes::VirtualTime& timers = queue;

  void advance(Duration duration) { queue.advance(duration); }
};

template <typename Subject>
class DispatchContract : public testing::Test {
 protected:
  Subject subject_;
};

using Subjects = testing::Types<LinuxSubject, FakeSubject>;
TYPED_TEST_SUITE(DispatchContract, Subjects);

TYPED_TEST(DispatchContract, runsBlocksInOrderAndNeverInsideTheCall) {
  std::string order;
  MainQueue& queue = this->subject_.queue;
  queue.after(Duration{0.03}, [&] { order += 'd'; });
  queue.async([&] {
    order += 'a';
    queue.async([&] { order += 'c'; });
  });
  queue.async([&] { order += 'b'; });
  EXPECT_EQ(order, "");
  this->subject_.advance(Duration{0.01});
  EXPECT_EQ(order, "abc");
  this->subject_.advance(Duration{0.05});
  EXPECT_EQ(order, "abcd");
}

TYPED_TEST(DispatchContract, aTimerFiresAfterEachIntervalUntilItIsDestroyed) {
  int firings = 0;
  TimerService& timers = this->subject_.timers;
  auto timer = timers.repeat(Duration{0.1}, [&] { ++firings; });
  this->subject_.advance(Duration{0.05});
  EXPECT_EQ(firings, 0) << "not at once";
  this->subject_.advance(Duration{0.20});
  EXPECT_EQ(firings, 2);
  timer.reset();
  this->subject_.advance(Duration{0.15});
  EXPECT_EQ(firings, 2);
}

TYPED_TEST(DispatchContract, aTimerMayBeDestroyedByItsOwnBlock) {
  int firings = 0;
  std::unique_ptr<RepeatingTimer> timer;
  TimerService& timers = this->subject_.timers;
  timer = timers.repeat(Duration{0.01}, [&] {
    ++firings;
    timer.reset();
  });
  this->subject_.advance(Duration{0.05});
  EXPECT_EQ(firings, 1);
}

}  // namespace
}  // namespace orvane
