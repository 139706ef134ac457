#include "platform/linux/session_bus.h"

#include <gtest/gtest.h>

#include "tests/unit/test_bus.h"

namespace orvane {
namespace {

constexpr SessionBusTiming quick{std::chrono::milliseconds(20), std::chrono::milliseconds(2000)};

struct Signals {
  explicit Signals(SessionBus& bus) {
    QObject::connect(&bus, &SessionBus::connected, [this] { ++connected; });
    QObject::connect(&bus, &SessionBus::disconnected, [this] { ++disconnected; });
    QObject::connect(&bus, &SessionBus::unavailable, [this] { ++unavailable; });
  }
  int connected = 0, disconnected = 0, unavailable = 0;
};

TEST(SessionBus, followsABusThatGoesAndComes) {
  TestBus daemon;
  const ScopedEnvironment address("DBUS_SESSION_BUS_ADDRESS", daemon.address());
  daemon.stop();
  SessionBus bus(nullptr, quick);
  const Signals signals(bus);
  bus.start();
  EXPECT_FALSE(bus.isSettled());
  ASSERT_TRUE(waitUntil([&] { return signals.unavailable == 1; }));
  EXPECT_TRUE(bus.isSettled());
  EXPECT_FALSE(bus.isConnected());

  for (int round = 1; round <= 2; ++round) {
    daemon.start();
    ASSERT_TRUE(waitUntil([&] { return signals.connected == round; }));
    EXPECT_TRUE(bus.connection().isConnected());
    daemon.stop();
    ASSERT_TRUE(waitUntil([&] { return signals.disconnected == round; }));
    EXPECT_FALSE(bus.connection().isConnected());
  }
  EXPECT_EQ(signals.unavailable, 1) << "only the first attempt reports it";
}

TEST(SessionBus, waitsForASlowBusButNotAtItsEnd) {
  TestBus daemon;
  const ScopedEnvironment address("DBUS_SESSION_BUS_ADDRESS", daemon.address());
  daemon.pause();
  SessionBus left(nullptr, {std::chrono::milliseconds(20), std::chrono::hours(1)});
  SessionBus bus(nullptr, {std::chrono::milliseconds(20), std::chrono::hours(1)});
  const Signals signals(bus);
  bus.start();
  runEventLoopFor(50);
  EXPECT_FALSE(bus.isSettled());
  daemon.resume();
  ASSERT_TRUE(waitUntil([&] { return signals.connected == 1; }));
  daemon.pause();
  left.start();
  runEventLoopFor(50);
  EXPECT_FALSE(left.isSettled()) << "and ends with the test, without waiting";
}

}  // namespace
}  // namespace orvane
