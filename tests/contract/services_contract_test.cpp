#include <gtest/gtest.h>

#include <string>

#include "platform/linux/desktop/linux_preferences.h"
#include "platform/linux/runtime/in_process_notification_centre.h"
#include "platform/linux/runtime/linux_dispatch.h"
#include "testing/fake_notification_centre.h"
#include "testing/fake_preferences.h"
#include "testing/virtual_time.h"
#include "tests/unit/test_support.h"

namespace orvane {
namespace {

/// The services of a running desktop, with a real clock.
struct LinuxServices {
  TestDirectory directory;
  LinuxMainQueue queue;
  LinuxTimerService timers;
  InProcessNotificationCentre centre{queue};
  LinuxPreferences preferences{directory.path("orvane.conf")};

  static void advance(Duration duration) { QTest::qWait(qRound(duration.count() * 1000)); }
};

struct FakeServices {
  fakes::VirtualTime queue;
  fakes::VirtualTime& timers = queue;
  fakes::FakeNotificationCentre centre;
  fakes::FakePreferences preferences;

  void advance(Duration duration) { queue.advance(duration); }
};

template <typename Services>
class Contract : public testing::Test {
 protected:
  Services services_;
};

using Implementations = testing::Types<LinuxServices, FakeServices>;
TYPED_TEST_SUITE(Contract, Implementations);

TYPED_TEST(Contract, QueueRunsBlocksInOrderAndNeverInsideTheCall) {
  std::string order;
  MainQueue& queue = this->services_.queue;
  queue.after(Duration{0.03}, [&] { order += 'd'; });
  queue.async([&] {
    order += 'a';
    queue.async([&] { order += 'c'; });
  });
  queue.async([&] { order += 'b'; });
  EXPECT_EQ(order, "");
  this->services_.advance(Duration{0.01});
  EXPECT_EQ(order, "abc");
  this->services_.advance(Duration{0.05});
  EXPECT_EQ(order, "abcd");
}

TYPED_TEST(Contract, TimerFiresAfterEachIntervalUntilItIsDestroyed) {
  int firings = 0;
  TimerService& timers = this->services_.timers;
  auto timer = timers.repeat(Duration{0.1}, [&] { ++firings; });
  this->services_.advance(Duration{0.05});
  EXPECT_EQ(firings, 0) << "not at once";
  this->services_.advance(Duration{0.20});
  EXPECT_EQ(firings, 2);
  timer.reset();
  this->services_.advance(Duration{0.15});
  EXPECT_EQ(firings, 2);
  timer = timers.repeat(Duration{0.01}, [&] {
    ++firings;
    timer.reset();
  });
  this->services_.advance(Duration{0.05});
  EXPECT_EQ(firings, 3) << "destroyed by its own block";
}

TYPED_TEST(Contract, NotificationCentreCallsEveryObserverOfTheNameOncePerPost) {
  std::string calls;
  NotificationCentre& centre = this->services_.centre;
  centre.post("A");
  for (const char name : {'a', 'b'}) centre.addObserver("A", [&calls, name] { calls += name; });
  centre.addObserver("B", [&] { calls += 'x'; });
  for (const char* seen : {"ab", "abab"}) {  // not for the post before the observers came
    centre.post("A");
    centre.post("nobody");
    this->services_.advance(Duration{0});
    EXPECT_EQ(calls, seen);
  }
}

TEST(InProcessNotificationCentre, DeliversOnlyFromTheMainQueueAndOnlyWhileItLives) {
  fakes::VirtualTime time;
  int calls = 0;
  {
    InProcessNotificationCentre centre(time);
    centre.addObserver("A", [&] {
      ++calls;
      centre.addObserver("A", [&] { calls += 10; });
    });
    centre.post("A");
    EXPECT_EQ(calls, 0) << "never inside post";
    time.runPending();
    EXPECT_EQ(calls, 1) << "an observer added meanwhile waits for the next post";
    centre.post("A");
  }
  time.runPending();
  EXPECT_EQ(calls, 1);
}

TYPED_TEST(Contract, PreferencesGiveBackTheLatestValueOfEachKey) {
  Preferences& preferences = this->services_.preferences;
  EXPECT_EQ(preferences.text("text"), std::nullopt);
  EXPECT_EQ(preferences.boolean("flag"), std::nullopt);
  for (const bool value : {true, false}) {
    preferences.setBoolean("flag", value);
    EXPECT_EQ(preferences.boolean("flag"), value);
  }
  for (const char* value : {"peak", "", " spaces ", "a, b; c=d", "\"quoted\\\"", "@Invalid()",
                            "two\nlines", "größe 字"}) {
    preferences.setText("text", value);
    EXPECT_EQ(preferences.text("text"), value);
  }
  EXPECT_EQ(preferences.boolean("flag"), false) << "untouched by the other key";
}

}  // namespace
}  // namespace orvane
