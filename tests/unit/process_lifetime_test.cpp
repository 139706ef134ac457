#include <gtest/gtest.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <future>
#include <memory>
#include <vector>

#include "platform/linux/desktop/single_instance.h"
#include "platform/linux/runtime/termination_signals.h"
#include "tests/unit/test_bus.h"

namespace orvane {
namespace {

using namespace std::chrono_literals;

using Outcome = SingleInstance::Outcome;

/// Hands over beside the event loop, on which the first instance answers.
auto handOver(const std::string& name, char wish, std::chrono::milliseconds wait = 5s) {
  return std::async(std::launch::async, [=] { return SingleInstance(name).handOver(wish, wait); });
}

Outcome settled(std::future<Outcome>& outcome) {
  EXPECT_TRUE(waitUntil([&] { return outcome.wait_for(0s) == std::future_status::ready; }));
  return outcome.get();
}

TEST(SingleInstance, ALaterInstanceTellsTheFirstItsWishAndHandsItsTokenOver) {
  const std::string session = "hand-over" + std::to_string(::getpid());
  const ScopedEnvironment none("XDG_ACTIVATION_TOKEN", std::nullopt);
  std::string wishes;
  SingleInstance first(session);
  ASSERT_EQ(first.handOver('a'), Outcome::first);
  EXPECT_EQ(SingleInstance("another " + session).handOver('a'), Outcome::first);
  for (const std::size_t size : {3U, 1025U, 9999U}) {
    const ScopedEnvironment token("DESKTOP_STARTUP_ID", std::string(size, 'x'));
    auto early = handOver(session, 'b');
    first.listen([&wishes](char wish) { wishes += wish; });
    EXPECT_EQ(settled(early), Outcome::accepted) << size;
    EXPECT_EQ(qgetenv("XDG_ACTIVATION_TOKEN"), "xxx") << "too long a token is none";
  }
  EXPECT_EQ(wishes, "bbb");
}

TEST(SingleInstance, AStartDuringTheEndOfTheFirstTakesItsPlace) {
  const std::string session = "end" + std::to_string(::getpid());
  auto first = std::make_unique<SingleInstance>(session);
  ASSERT_EQ(first->handOver('a'), Outcome::first);
  auto second = handOver(session, 'b');
  EXPECT_EQ(second.wait_for(100ms), std::future_status::timeout);
  first.reset();
  EXPECT_EQ(settled(second), Outcome::first);
}

TEST(SingleInstance, OneThatDoesNotAnswerGetsNoDuplicateAndIsTold) {
  const std::string session = "silent" + std::to_string(::getpid());
  SingleInstance first(session);
  ASSERT_EQ(first.handOver('a'), Outcome::first);
  std::vector<std::future<Outcome>> starts;
  for (int i = 0; i < 40; ++i) starts.push_back(handOver(session, 'b', 300ms));
  for (auto& start : starts) EXPECT_EQ(start.get(), Outcome::silent);
  SingleInstance last(session);
  EXPECT_EQ(last.handOver('b', 50ms), Outcome::silent);
  EXPECT_EQ(last.problem(), "orvane: it runs already as process " + std::to_string(::getpid()) +
                                ", which doesn't answer");
}

TEST(TerminationSignals, BecomeCallsFromTheEventLoopWhileTheyAreHandled) {
  for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
    int calls = 0;
    const TerminationSignals signals([&calls] { ++calls; });
    ::raise(signal);
    EXPECT_EQ(calls, 0) << "not inside the signal handler";
    EXPECT_TRUE(waitUntil([&] { return calls == 1; })) << signal;
    EXPECT_GT(::alarm(0), 0U) << "the end of a loop that doesn't come to the call";
  }
  const auto hang = [](bool isAsked) {
    const TerminationSignals signals([] {});
    isAsked ? static_cast<void>(::raise(SIGTERM)) : signals.endSoon();
    for (;;) ::pause();
  };
  for (const bool isAsked : {true, false}) {
    EXPECT_EXIT(hang(isAsked), testing::ExitedWithCode(0), "");
  }
  EXPECT_EXIT(::raise(SIGTERM), testing::KilledBySignal(SIGTERM), "");
}

}  // namespace
}  // namespace orvane
