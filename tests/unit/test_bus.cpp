#include "tests/unit/test_bus.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDeadlineTimer>
#include <QtCore/QThread>

namespace orvane {

void TestBus::start() {
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

void TestBus::stop() {
  if (daemon_.state() == QProcess::NotRunning) return;
  daemon_.terminate();
  ::kill(static_cast<pid_t>(daemon_.processId()), SIGCONT);  // it may be paused
  daemon_.waitForFinished(10000);
}

void TestBus::kill() {
  daemon_.kill();
  daemon_.waitForFinished(10000);
}

bool waitUntil(const std::function<bool()>& condition) {
  const QDeadlineTimer deadline(10000);
  while (!condition() && !deadline.hasExpired()) runEventLoopFor(1);
  return condition();
}

void runEventLoopFor(int milliseconds) {
  const QDeadlineTimer deadline(milliseconds);
  do {
    QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    QThread::msleep(1);
  } while (!deadline.hasExpired());
}

}  // namespace orvane
