#include "platform/linux/bus_address.h"

#include <gtest/gtest.h>
#include <sys/eventfd.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <cstring>
#include <thread>

#include "platform/linux/file_descriptor.h"
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
  {
    const ScopedEnvironment noDirectory("XDG_RUNTIME_DIR", std::nullopt);
    EXPECT_TRUE(sessionBusAddresses().empty());
  }
  const TestDirectory directory;
  {
    const ScopedEnvironment runtime("XDG_RUNTIME_DIR", directory.path());
    directory.write("bus", "not a socket");
    EXPECT_TRUE(sessionBusAddresses().empty());
  }
  const TestBus bus;
  const std::string runtimeDirectory = bus.socketPath().substr(0, bus.socketPath().rfind('/'));
  const ScopedEnvironment runtime("XDG_RUNTIME_DIR", runtimeDirectory);
  const auto addresses = sessionBusAddresses();
  ASSERT_EQ(addresses.size(), 1U);
  EXPECT_EQ(addresses[0].socketPath, bus.socketPath());
  EXPECT_EQ(parseBusAddresses(addresses[0].text).at(0).socketPath, bus.socketPath());
}

/// A socket that takes connections and, at most, answers the greeting.
class SilentBus {
 public:
  explicit SilentBus(bool authenticates) {
    sockaddr_un name{};
    name.sun_family = AF_UNIX;
    const std::string path = directory_.path("bus");
    std::memcpy(name.sun_path, path.c_str(), path.size());
    listening_ =
        ::bind(socket_.get(), reinterpret_cast<const sockaddr*>(&name), sizeof name) == 0 &&
        ::listen(socket_.get(), 5) == 0;
    if (authenticates) thread_ = std::thread([this] { authenticate(); });
  }
  SilentBus(const SilentBus&) = delete;
  SilentBus& operator=(const SilentBus&) = delete;
  ~SilentBus() {
    ::shutdown(socket_.get(), SHUT_RDWR);
    if (thread_.joinable()) thread_.join();
  }

  [[nodiscard]] bool isListening() const { return listening_; }
  [[nodiscard]] BusAddress address() const { return {"", directory_.path("bus"), false}; }

 private:
  void authenticate() {
    client_ = FileDescriptor(::accept(socket_.get(), nullptr, nullptr));
    if (client_.isOpen() && ::send(client_.get(), "OK 1234\r\n", 9, MSG_NOSIGNAL) < 0) return;
  }

  TestDirectory directory_;
  FileDescriptor socket_{::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0)};
  FileDescriptor client_;
  std::thread thread_;
  bool listening_ = false;
};

TEST(BusAddress, tellsALiveBusFromASilentOne) {
  const FileDescriptor cancel(::eventfd(0, EFD_CLOEXEC));
  {
    const TestBus bus;
    EXPECT_TRUE(busAnswers({"", bus.socketPath(), false}, cancel.get(), milliseconds(5000)));
  }
  EXPECT_FALSE(busAnswers({"", "/nonexistent/bus", false}, cancel.get(), milliseconds(5000)));
  for (const bool authenticates : {false, true}) {
    const SilentBus bus(authenticates);
    ASSERT_TRUE(bus.isListening());
    EXPECT_FALSE(busAnswers(bus.address(), cancel.get(), milliseconds(150)));
  }
  const SilentBus bus(false);
  ::eventfd_write(cancel.get(), 1);
  EXPECT_FALSE(busAnswers(bus.address(), cancel.get(), milliseconds(600000))) << "cancelled";
}

}  // namespace
}  // namespace orvane
