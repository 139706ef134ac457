#include <gtest/gtest.h>
#include <unistd.h>

#include <csignal>

#include "platform/linux/desktop/single_instance.h"
#include "platform/linux/runtime/termination_signals.h"
#include "tests/unit/test_bus.h"

namespace orvane {
namespace {

TEST(SingleInstance, ALaterInstanceHandsOverToTheFirst) {
  const std::string session = "hand-over" + std::to_string(::getpid());
  int requests = 0;
  {
    SingleInstance first(session);
    ASSERT_FALSE(first.handOver());
    EXPECT_TRUE(SingleInstance(session).handOver()) << "before the first listens";
    first.listen([&requests] { ++requests; });
    EXPECT_TRUE(SingleInstance(session).handOver());
    EXPECT_TRUE(waitUntil([&] { return requests == 2; }));
    EXPECT_FALSE(SingleInstance("another " + session).handOver());
  }
  EXPECT_FALSE(SingleInstance(session).handOver()) << "the first is gone";
}

TEST(TerminationSignals, BecomeCallsFromTheEventLoopWhileTheyAreHandled) {
  for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
    int calls = 0;
    const TerminationSignals signals([&calls] { ++calls; });
    ::raise(signal);
    EXPECT_EQ(calls, 0) << "not inside the signal handler";
    EXPECT_TRUE(waitUntil([&] { return calls == 1; })) << signal;
  }
  EXPECT_EXIT(::raise(SIGTERM), testing::KilledBySignal(SIGTERM), "");
}

}  // namespace
}  // namespace orvane
