#include "platform/linux/session_bus.h"

#include <gtest/gtest.h>

#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusPendingCallWatcher>

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
  int connected = 0;
  int disconnected = 0;
  int unavailable = 0;
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

TEST(SessionBus, callsInFlightEndWithTheBus) {
  TestBus daemon;
  const ScopedEnvironment address("DBUS_SESSION_BUS_ADDRESS", daemon.address());
  SessionBus bus;
  bus.start();
  ASSERT_TRUE(waitUntil([&] { return bus.isConnected(); }));
  daemon.pause();
  const QDBusMessage message = QDBusMessage::createMethodCall(
      QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/"),
      QStringLiteral("org.freedesktop.DBus"), QStringLiteral("GetId"));
  const QDBusPendingCallWatcher watcher(bus.connection().asyncCall(message));
  daemon.kill();
  EXPECT_TRUE(waitUntil([&] { return watcher.isFinished(); }));
  EXPECT_TRUE(watcher.isError());
}

TEST(SessionBus, endsAtOnceWhileAnAttemptHangs) {
  TestBus daemon;
  const ScopedEnvironment address("DBUS_SESSION_BUS_ADDRESS", daemon.address());
  daemon.pause();
  SessionBus bus(nullptr, {std::chrono::milliseconds(20), std::chrono::hours(1)});
  const Signals signals(bus);
  bus.start();
  runEventLoopFor(50);
  EXPECT_FALSE(bus.isSettled());
  daemon.resume();
  ASSERT_TRUE(waitUntil([&] { return signals.connected == 1; })) << "a slow bus is waited for";

  daemon.pause();
  SessionBus other(nullptr, {std::chrono::milliseconds(20), std::chrono::hours(1)});
  other.start();
  runEventLoopFor(50);
  EXPECT_FALSE(other.isSettled()) << "and is left, without waiting for it, at the end of the test";
}

}  // namespace
}  // namespace orvane
