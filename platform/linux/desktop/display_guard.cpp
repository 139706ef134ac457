#include "platform/linux/desktop/display_guard.h"

#include <unistd.h>

#include <QtCore/qlogging.h>
#include <QtCore/QByteArray>
#include <csignal>

namespace orvane {
namespace {

constexpr unsigned patienceSeconds = 15;

// Made beforehand: a signal handler may not.
QByteArray noDisplay;
QByteArray silentDisplay;

QByteArray displayLine(const char* problem) {
  QByteArray line = QByteArray("orvane: ") + problem + " (";
  for (const char* name : {"QT_QPA_PLATFORM", "WAYLAND_DISPLAY", "DISPLAY"})
    line += QByteArray(name) + "=" + qgetenv(name).left(100) + ", ";
  line.chop(2);
  for (char& byte : line) {
    if (static_cast<unsigned char>(byte) < 0x20 || byte == 0x7f) byte = '?';
  }
  return line + ")\n";
}

/// No clean end: a QGuiApplication made by half could not take part in it.
[[noreturn]] void giveUp(const QByteArray& line) {
  [[maybe_unused]] const auto written =
      ::write(STDERR_FILENO, line.constData(), static_cast<std::size_t>(line.size()));
  ::_exit(1);
}

void endOnFatal(QtMsgType type, const QMessageLogContext& /*context*/, const QString& /*text*/) {
  if (type == QtFatalMsg) giveUp(noDisplay);
}

void endOnAlarm(int /*signal*/) {
  giveUp(silentDisplay);
}

}  // namespace

DisplayGuard::DisplayGuard() {
  noDisplay = displayLine("no display can be opened");
  silentDisplay = displayLine("the display doesn't answer");
  qInstallMessageHandler(endOnFatal);
  std::signal(SIGALRM, endOnAlarm);
  ::alarm(patienceSeconds);
}

DisplayGuard::~DisplayGuard() {
  ::alarm(0);
  std::signal(SIGALRM, SIG_DFL);
  qInstallMessageHandler(nullptr);
}

}  // namespace orvane
