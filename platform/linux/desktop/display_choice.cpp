#include "platform/linux/desktop/display_choice.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>
#include <xcb/xcb.h>

#include <QtCore/QStringList>
#include <array>
#include <csignal>

#include "platform/linux/files/file_descriptor.h"

namespace orvane {
namespace {

/// In a process of its own: xcb_connect waits for ever for a server that accepts and says nothing.
bool xServerAnswers(std::chrono::milliseconds patience) {
  std::array<int, 2> ends{};
  if (::pipe2(ends.data(), O_CLOEXEC) != 0) return false;
  const FileDescriptor reading(ends[0]);
  FileDescriptor writing(ends[1]);
  const pid_t child = ::fork();
  if (child == 0) ::_exit(xcb_connection_has_error(xcb_connect(nullptr, nullptr)) == 0 ? 0 : 1);
  if (child < 0) return false;
  writing = FileDescriptor();
  // The pipe's other end closes with the child.
  pollfd ended{reading.get(), 0, 0};
  if (::poll(&ended, 1, static_cast<int>(patience.count())) != 1) ::kill(child, SIGKILL);
  int status = -1;
  return ::waitpid(child, &status, 0) == child && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

}  // namespace

bool prefersXwayland(std::chrono::milliseconds patience) {
  const auto isSet = [](const char* name) { return !qEnvironmentVariableIsEmpty(name); };
  const QStringList desktops = qEnvironmentVariable("XDG_CURRENT_DESKTOP").split(QLatin1Char(':'));
  return isSet("WAYLAND_DISPLAY") && isSet("DISPLAY") && !isSet("QT_QPA_PLATFORM") &&
         desktops.contains(QStringLiteral("KDE")) && xServerAnswers(patience);
}

}  // namespace orvane
