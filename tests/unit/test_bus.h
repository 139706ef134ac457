#pragma once

#include <gtest/gtest.h>
#include <signal.h>

#include <QtCore/QProcess>
#include <QtDBus/QDBusConnection>
#include <string>

#include "tests/unit/test_support.h"

namespace orvane {

/// A message bus of the test's own that can start no services: the session's while it exists.
class TestBus {
 public:
  TestBus() { start(); }
  ~TestBus() { stop(); }

  /// Starts the daemon (again), always at the same address.
  void start() {
    const std::string configuration = directory_.write(
        "bus.conf",
        "<busconfig><type>session</type><listen>" + address() +
            "</listen><auth>EXTERNAL</auth><policy context='default'><allow send_destination='*' "
            "eavesdrop='true'/><allow eavesdrop='true'/><allow own='*'/></policy></busconfig>");
    daemon_.start(QStringLiteral("dbus-daemon"),
                  {QStringLiteral("--nofork"), QStringLiteral("--print-address"),
                   QStringLiteral("--config-file=") + QString::fromStdString(configuration)});
    daemon_.waitForReadyRead(10000);
  }
  void stop() {
    if (daemon_.state() == QProcess::NotRunning) return;
    daemon_.terminate();
    resume();  // it may be paused
    daemon_.waitForFinished(10000);
  }

  /// Ends the daemon before it does anything else.
  void kill() {
    daemon_.kill();
    daemon_.waitForFinished(10000);
  }

  /// Leaves the daemon running but deaf.
  void pause() const { ::kill(static_cast<pid_t>(daemon_.processId()), SIGSTOP); }
  void resume() const { ::kill(static_cast<pid_t>(daemon_.processId()), SIGCONT); }

  [[nodiscard]] std::string folder() const { return directory_.path(); }
  [[nodiscard]] std::string address() const { return "unix:path=" + folder() + "/bus"; }

 private:
  TestDirectory directory_;
  ScopedEnvironment session_{"DBUS_SESSION_BUS_ADDRESS", address()};
  QProcess daemon_;
};

/// A service on a bus connection of its own, both of which end with this. One at a time a name.
class BusService {
 public:
  BusService(const TestBus& bus, const char* name, const char* path, QObject& object)
      : name_(QLatin1String(name)),
        connection_(QDBusConnection::connectToBus(QString::fromStdString(bus.address()), name_)) {
    connection_.registerObject(QLatin1String(path), &object, QDBusConnection::ExportAllContents);
    // As soon as the bus has noticed that an owner before is gone.
    EXPECT_TRUE(waitUntil([&] { return connection_.registerService(name_); }));
  }
  ~BusService() { QDBusConnection::disconnectFromBus(name_); }
  Q_DISABLE_COPY_MOVE(BusService)

  [[nodiscard]] QDBusConnection& connection() { return connection_; }

 private:
  QString name_;
  QDBusConnection connection_;
};

}  // namespace orvane
