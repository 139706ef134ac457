#include <gtest/gtest.h>

#include <chrono>
#include <string>

#include "platform/linux/desktop/linux_login_item.h"
#include "platform/linux/desktop/linux_preferences.h"
#include "platform/linux/memory/linux_memory_claims.h"
#include "platform/linux/runtime/in_process_notification_centre.h"
#include "platform/linux/runtime/linux_dispatch.h"
#include "tests/fakes/fake_login_item.h"
#include "tests/fakes/fake_memory_claims.h"
#include "tests/fakes/fake_notification_centre.h"
#include "tests/fakes/fake_preferences.h"
#include "tests/fakes/virtual_time.h"
#include "tests/unit/test_bus.h"

namespace orvane {
namespace {

/// The services of a running desktop, with a real clock.
struct LinuxServices {
  TestDirectory directory;
  LinuxMainQueue queue;
  LinuxTimerService timers;
  InProcessNotificationCentre centre{queue};
  LinuxLoginItem loginItem{"/usr/bin/orvane", directory.path("autostart")};
  LinuxMemoryClaims claims;
  LinuxPreferences preferences{directory.path("orvane.conf")};

  static void advance(Duration duration) {
    const auto milliseconds = std::chrono::duration_cast<std::chrono::milliseconds>(duration);
    runEventLoopFor(static_cast<int>(milliseconds.count()));
  }
};

struct FakeServices {
  fakes::VirtualTime queue;
  fakes::VirtualTime& timers = queue;
  fakes::FakeNotificationCentre centre;
  fakes::FakeLoginItem loginItem;
  fakes::FakeMemoryClaims claims;
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
  centre.addObserver("A", [&] { calls += 'a'; });
  centre.addObserver("A", [&] { calls += 'b'; });
  centre.addObserver("B", [&] { calls += 'x'; });
  centre.post("A");
  this->services_.advance(Duration{0});
  EXPECT_EQ(calls, "ab") << "not for the post before the observers came";
  centre.post("A");
  centre.post("nobody");
  this->services_.advance(Duration{0});
  EXPECT_EQ(calls, "abab");
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

TYPED_TEST(Contract, LoginItemRegistersAsOftenAsAskedAndUnregistersOnce) {
  LoginItem& item = this->services_.loginItem;
  EXPECT_EQ(item.unregisterItem(), "No such file or directory");
  EXPECT_EQ(item.registerItem(), std::nullopt);
  EXPECT_EQ(item.registerItem(), std::nullopt);
  EXPECT_EQ(item.unregisterItem(), std::nullopt);
  EXPECT_EQ(item.unregisterItem(), "No such file or directory");
}

TYPED_TEST(Contract, MemoryClaimsAreWritableFromEndToEndAndApart) {
  MemoryClaims& claims = this->services_.claims;
  for (const std::size_t words : {std::size_t{1}, std::size_t{1025}, std::size_t{1} << 18}) {
    const auto first = claims.claim(words);
    const auto second = claims.claim(words);
    ASSERT_TRUE(first && second);
    ASSERT_EQ(first->words().size(), words);
    for (std::uint32_t& word : first->words()) word = 1;
    for (std::uint32_t& word : second->words()) word = 2;
    EXPECT_EQ(first->words().front(), 1U);
    EXPECT_EQ(first->words().back(), 1U);
  }
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
