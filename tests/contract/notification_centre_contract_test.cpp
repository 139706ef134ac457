#include <gtest/gtest.h>

#include <string>

#include "platform/linux/in_process_notification_centre.h"
#include "tests/fakes/fake_notification_centre.h"
#include "tests/fakes/virtual_time.h"

namespace orvane {
namespace {

struct InProcessSubject {
  fakes::VirtualTime time;
  InProcessNotificationCentre centre{time};
};

struct FakeSubject {
  fakes::VirtualTime time;
  fakes::FakeNotificationCentre centre;
};

template <typename Subject>
class NotificationCentreContract : public testing::Test {
 protected:
  NotificationCentre& centre() { return subject_.centre; }
  void runPending() { subject_.time.runPending(); }

 private:
  Subject subject_;
};

using Subjects = testing::Types<InProcessSubject, FakeSubject>;
TYPED_TEST_SUITE(NotificationCentreContract, Subjects);

TYPED_TEST(NotificationCentreContract, callsEveryObserverOfTheNameOncePerPost) {
  std::string calls;
  this->centre().post("A");
  this->centre().addObserver("A", [&] { calls += 'a'; });
  this->centre().addObserver("A", [&] { calls += 'b'; });
  this->centre().addObserver("B", [&] { calls += 'x'; });
  this->centre().post("A");
  this->runPending();
  EXPECT_EQ(calls, "ab") << "not for the post before the observers came";
  this->centre().post("A");
  this->centre().post("nobody");
  this->runPending();
  EXPECT_EQ(calls, "abab");
}

TEST(InProcessNotificationCentre, deliversOnlyFromTheMainQueueAndOnlyWhileItLives) {
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

}  // namespace
}  // namespace orvane
