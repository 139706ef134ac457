#include <gtest/gtest.h>
#include <sys/eventfd.h>

#include "platform/linux/bus/bus_address.h"
#include "platform/linux/bus/session_bus.h"
#include "platform/linux/files/file_descriptor.h"
#include "tests/unit/test_bus.h"

namespace orvane {
namespace {

using Addresses = std::vector<BusAddress>;
using std::chrono::milliseconds;

TEST(BusAddress, parsesLists) {
  EXPECT_EQ(parseBusAddresses("unix:path=/run/user/1000/bus,guid=12ab"),
            (Addresses{{"unix:path=/run/user/1000/bus,guid=12ab", "/run/user/1000/bus", false}}));
  EXPECT_EQ(parseBusAddresses("unix:guid=1,abstract=/tmp/x%2cy;tcp:host=h,port=1"),
            (Addresses{{"unix:guid=1,abstract=/tmp/x%2cy", "/tmp/x,y", true},
                       {"tcp:host=h,port=1", "", false}}));
  for (const char* nothing : {"", ";;", "autolaunch:", "autolaunch:scope=x", "unix:", "unix:path",
                              "unix:path=", "unix:path=%4", "unix:path=%zz", "nonsense", ":x=y"}) {
    EXPECT_TRUE(parseBusAddresses(nothing).empty()) << nothing;
  }
}

TEST(BusAddress, withoutAVariableTheSocketOfTheSession) {
  const ScopedEnvironment noAddress("DBUS_SESSION_BUS_ADDRESS", std::nullopt);
  const TestDirectory directory;
  directory.write("bus", "not a socket");
  for (const auto& folder : {std::optional<std::string>(), std::optional(directory.path())}) {
    const ScopedEnvironment runtime("XDG_RUNTIME_DIR", folder);
    EXPECT_TRUE(sessionBusAddresses().empty());
  }
  const TestBus bus;
  const ScopedEnvironment runtime("XDG_RUNTIME_DIR",
                                  bus.socketPath().substr(0, bus.socketPath().rfind('/')));
  const auto addresses = sessionBusAddresses();
  ASSERT_EQ(addresses.size(), 1U);
  EXPECT_EQ(addresses[0].socketPath, bus.socketPath());
}

TEST(BusAddress, tellsALiveBusFromASilentOne) {
  const FileDescriptor cancel(::eventfd(0, EFD_CLOEXEC));
  const TestBus bus;
  const BusAddress address{"", bus.socketPath(), false};
  EXPECT_TRUE(busAnswers(address, cancel.get(), milliseconds(5000)));
  EXPECT_FALSE(busAnswers({"", "/nonexistent/bus", false}, cancel.get(), milliseconds(5000)));
  bus.pause();
  EXPECT_FALSE(busAnswers(address, cancel.get(), milliseconds(150)));
  ::eventfd_write(cancel.get(), 1);
  EXPECT_FALSE(busAnswers(address, cancel.get(), milliseconds(600000))) << "cancelled";
}

TEST(SessionBus, followsABusThatGoesAndComes) {
  TestBus daemon;
  const ScopedEnvironment address("DBUS_SESSION_BUS_ADDRESS", daemon.address());
  daemon.stop();
  int connected = 0, disconnected = 0, unavailable = 0;
  SessionBus bus(nullptr, {milliseconds(20), milliseconds(2000)});
  QObject::connect(&bus, &SessionBus::connected, [&] { ++connected; });
  QObject::connect(&bus, &SessionBus::disconnected, [&] { ++disconnected; });
  QObject::connect(&bus, &SessionBus::unavailable, [&] { ++unavailable; });
  bus.start();
  EXPECT_FALSE(bus.isSettled());
  ASSERT_TRUE(waitUntil([&] { return unavailable == 1; }));
  EXPECT_TRUE(bus.isSettled());
  EXPECT_FALSE(bus.isConnected());

  for (int round = 1; round <= 2; ++round) {
    daemon.start();
    ASSERT_TRUE(waitUntil([&] { return connected == round; }));
    EXPECT_TRUE(bus.connection().isConnected());
    daemon.stop();
    ASSERT_TRUE(waitUntil([&] { return disconnected == round; }));
    EXPECT_FALSE(bus.connection().isConnected());
  }
  EXPECT_EQ(unavailable, 1) << "only the first attempt reports it";
}

}  // namespace
}  // namespace orvane
