#include "platform/linux/runtime/linux_standard_output.h"

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <string>

namespace orvane {
namespace {

bool isWritable(int descriptor) {
  pollfd state{descriptor, POLLOUT, 0};
  return ::poll(&state, 1, 0) == 1 && (state.revents & POLLOUT) != 0;
}

}  // namespace

void fillStandardStreams() {
  int descriptor = 0;
  while (descriptor >= 0 && descriptor <= STDERR_FILENO) descriptor = ::open("/dev/null", O_RDWR);
  ::close(descriptor);
}

LinuxStandardOutput::LinuxStandardOutput(int descriptor) : descriptor_(descriptor) {
  // QProcess gives the programs it starts the signal's default back.
  std::signal(SIGPIPE, SIG_IGN);
}

void LinuxStandardOutput::printLine(std::string_view line) {
  std::string text(line);
  std::replace_if(
      text.begin(), text.end(), [](unsigned char byte) { return byte < 0x20 || byte == 0x7f; },
      ' ');
  text += '\n';
  const std::scoped_lock lock(mutex_);
  std::string_view rest = text;
  while (!rest.empty() && isWritable(descriptor_)) {
    const ssize_t count = ::write(descriptor_, rest.data(), rest.size());
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) return;
    rest.remove_prefix(static_cast<std::size_t>(count));
  }
}

}  // namespace orvane
