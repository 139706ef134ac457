#include "platform/linux/runtime/linux_standard_output.h"

#include <poll.h>
#include <signal.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <ctime>
#include <string>

namespace orvane {
namespace {

/// Keeps the SIGPIPE of this thread's own writes from ending the program, and nothing else.
class BrokenPipeGuard {
 public:
  BrokenPipeGuard() {
    sigemptyset(&brokenPipe_);
    sigaddset(&brokenPipe_, SIGPIPE);
    sigset_t pending;
    sigpending(&pending);
    wasPending_ = sigismember(&pending, SIGPIPE) == 1;
    pthread_sigmask(SIG_BLOCK, &brokenPipe_, &previous_);
  }
  BrokenPipeGuard(const BrokenPipeGuard&) = delete;
  BrokenPipeGuard& operator=(const BrokenPipeGuard&) = delete;
  ~BrokenPipeGuard() {
    const timespec now{};
    while (!wasPending_ && sigtimedwait(&brokenPipe_, nullptr, &now) < 0 && errno == EINTR) {
    }
    pthread_sigmask(SIG_SETMASK, &previous_, nullptr);
  }

 private:
  sigset_t brokenPipe_{};
  sigset_t previous_{};
  bool wasPending_ = false;
};

bool isWritable(int descriptor) {
  pollfd state{descriptor, POLLOUT, 0};
  return ::poll(&state, 1, 0) == 1 && (state.revents & POLLOUT) != 0;
}

}  // namespace

void LinuxStandardOutput::printLine(std::string_view line) {
  std::string text(line);
  std::replace_if(
      text.begin(), text.end(),
      [](char character) { return character == '\n' || character == '\r'; }, ' ');
  text += '\n';
  const std::scoped_lock lock(mutex_);
  const BrokenPipeGuard guard;
  std::string_view rest = text;
  while (!rest.empty() && isWritable(descriptor_)) {
    const ssize_t count = ::write(descriptor_, rest.data(), rest.size());
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) return;
    rest.remove_prefix(static_cast<std::size_t>(count));
  }
}

}  // namespace orvane
