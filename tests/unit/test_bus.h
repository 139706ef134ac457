#pragma once

#include <gtest/gtest.h>
#include <signal.h>

#include <QtCore/QProcess>
#include <QtDBus/QDBusConnection>
#include <functional>
#include <string>

#include "tests/unit/test_files.h"

namespace orvane {

/// A message bus of the test's own that can start no services.
class TestBus {
 public:
  TestBus() { start(); }
  ~TestBus() { stop(); }
  TestBus(const TestBus&) = delete;
  TestBus& operator=(const TestBus&) = delete;

  /// Starts the daemon (again), always at the same address.
  void start();
  void stop();

  /// Ends the daemon before it does anything else.
  void kill();

  /// Leaves the daemon running but deaf.
  void pause() const { ::kill(static_cast<pid_t>(daemon_.processId()), SIGSTOP); }
  void resume() const { ::kill(static_cast<pid_t>(daemon_.processId()), SIGCONT); }

  [[nodiscard]] std::string address() const { return "unix:path=" + socketPath(); }
  [[nodiscard]] std::string socketPath() const { return directory_.path("bus"); }

 private:
  TestDirectory directory_;
  QProcess daemon_;
};

/// Runs the event loop until `condition` holds; false when it doesn't within ten seconds.
[[nodiscard]] bool waitUntil(const std::function<bool()>& condition);

/// Runs the event loop for that long.
void runEventLoopFor(int milliseconds);

/// A service on a bus connection of its own, both of which end with this. One at a time a name.
class BusService {
 public:
  BusService(const TestBus& bus, const char* name, const char* path, QObject& object)
      : name_(QString::fromLatin1(name)),
        connection_(QDBusConnection::connectToBus(QString::fromStdString(bus.address()), name_)) {
    connection_.registerObject(QString::fromLatin1(path), &object,
                               QDBusConnection::ExportAllContents);
    // As soon as the bus has noticed that an owner before is gone.
    EXPECT_TRUE(waitUntil([&] { return connection_.registerService(name_); }));
  }
  ~BusService() { QDBusConnection::disconnectFromBus(name_); }
  BusService(const BusService&) = delete;
  BusService& operator=(const BusService&) = delete;

  [[nodiscard]] QDBusConnection& connection() { return connection_; }

 private:
  QString name_;
  QDBusConnection connection_;
};

}  // namespace orvane
