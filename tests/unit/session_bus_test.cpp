#include <gtest/gtest.h>

#include <QtCore/QElapsedTimer>

#include "platform/linux/bus/session_bus.h"
#include "tests/unit/test_bus.h"

namespace orvane {
namespace {

using std::chrono::milliseconds;

TEST(SessionBus, findsTheBusOfTheSessionAndNeverStartsOne) {
  const TestBus daemon;
  const std::string folder = daemon.folder();
  const auto connects = [](const std::optional<std::string>& addressList,
                           const std::optional<std::string>& runtimeFolder) {
    const ScopedEnvironment address("DBUS_SESSION_BUS_ADDRESS", addressList);
    const ScopedEnvironment runtime("XDG_RUNTIME_DIR", runtimeFolder);
    SessionBus bus;
    bus.start();
    EXPECT_FALSE(bus.isSettled());
    EXPECT_TRUE(waitUntil([&] { return bus.isSettled(); }));
    EXPECT_EQ(bus.connection().isConnected(), bus.isConnected());
    EXPECT_EQ(bus.uniqueName().startsWith(u':'), bus.isConnected());
    return bus.isConnected();
  };
  EXPECT_TRUE(connects("unix:path=/nonexistent/bus;" + daemon.address(), folder + "x"));
  EXPECT_TRUE(connects("autolaunch:;" + daemon.address(), std::nullopt));
  EXPECT_TRUE(connects(std::nullopt, folder));
  EXPECT_TRUE(connects("", folder));
  for (const char* address : {"autolaunch:", ";;", "unix:path=%zz", "nonsense", ":x=y"})
    EXPECT_FALSE(connects(address, folder)) << address;
  EXPECT_FALSE(connects(std::nullopt, folder + "x"));
  EXPECT_FALSE(connects(std::nullopt, std::nullopt));
}

TEST(SessionBus, followsABusThatGoesAndComes) {
  TestBus daemon;
  daemon.stop();
  std::string told;
  SessionBus bus(nullptr, {milliseconds(20), milliseconds(2000)});
  QObject::connect(&bus, &SessionBus::connected, [&] { told += "connected "; });
  QObject::connect(&bus, &SessionBus::disconnected, [&] { told += "disconnected "; });
  QObject::connect(&bus, &SessionBus::unavailable, [&] { told += "unavailable "; });
  bus.start();
  std::string expected = "unavailable ";
  ASSERT_TRUE(waitUntil([&] { return told == expected; }));
  EXPECT_FALSE(bus.isConnected());
  for (int round = 1; round <= 2; ++round) {
    daemon.start();
    expected += "connected ";
    ASSERT_TRUE(waitUntil([&] { return told == expected; })) << told;
    EXPECT_TRUE(bus.connection().isConnected());
    daemon.stop();
    expected += "disconnected ";
    ASSERT_TRUE(waitUntil([&] { return told == expected; })) << told;
    EXPECT_FALSE(bus.connection().isConnected());
  }
}

TEST(SessionBus, waitsForASilentBusWithoutHoldingAnybodyUp) {
  TestBus daemon;
  daemon.pause();
  QElapsedTimer clock;
  clock.start();
  keepQtOffSilentBus();
  EXPECT_GE(clock.elapsed(), 250) << "Qt was not kept off";
  SessionBus().start();
  for (const bool dies : {false, true}) {
    daemon.pause();
    clock.start();
    SessionBus bus(nullptr, {milliseconds(20), milliseconds(50)});
    bus.start();
    EXPECT_LT(clock.elapsed(), 5000);
    ASSERT_TRUE(waitUntil([&] { return bus.isSettled(); }));
    EXPECT_FALSE(bus.connection().isConnected());
    if (dies) daemon.kill();
    dies ? daemon.start() : daemon.resume();
    EXPECT_TRUE(waitUntil([&] { return bus.isConnected(); })) << dies;
  }
}

}  // namespace
}  // namespace orvane
