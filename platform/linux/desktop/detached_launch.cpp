#include "platform/linux/desktop/detached_launch.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>

#include "platform/linux/files/held_file.h"

namespace orvane {

namespace {

constexpr const char* oomScoreAdjustmentPath = "/proc/self/oom_score_adj";

// What runs in the child between fork and exec makes system calls only: other threads may have
// held any lock at the moment of the fork.

void restoreSignals() {
  sigset_t none;
  sigemptyset(&none);
  sigprocmask(SIG_SETMASK, &none, nullptr);
  struct sigaction standard {};
  standard.sa_handler = SIG_DFL;
  for (int number = 1; number < NSIG; ++number) sigaction(number, &standard, nullptr);
}

void restoreOpenFilesLimit(rlim_t openFiles) {
  rlimit limit{};
  if (getrlimit(RLIMIT_NOFILE, &limit) != 0) return;
  limit.rlim_cur = std::min(openFiles, limit.rlim_max);
  setrlimit(RLIMIT_NOFILE, &limit);
}

void restoreOomScoreAdjustment(const std::string& value) {
  const int file = value.empty() ? -1 : open(oomScoreAdjustmentPath, O_WRONLY | O_CLOEXEC);
  [[maybe_unused]] const auto written = write(file, value.data(), value.size());
}

void silenceStandardStreams() {
  const int nothing = open("/dev/null", O_RDWR | O_CLOEXEC);
  for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) dup2(nothing, stream);
}

[[noreturn]] void becomeProgram(char* const* arguments, const InheritedLimits& inherited) {
  setsid();
  // The program's parent ends at once, so that nobody here has to wait for the program.
  if (_Fork() != 0) _exit(0);
  restoreSignals();
  silenceStandardStreams();
  restoreOpenFilesLimit(inherited.openFiles);
  restoreOomScoreAdjustment(inherited.oomScoreAdjustment);
  execv(arguments[0], arguments);
  _exit(127);
}

}  // namespace

InheritedLimits InheritedLimits::current() {
  rlimit files{};
  const bool known = getrlimit(RLIMIT_NOFILE, &files) == 0;
  HeldFile adjustment(oomScoreAdjustmentPath);
  return {.openFiles = known ? files.rlim_cur : RLIM_INFINITY,
          .oomScoreAdjustment = std::string(adjustment.read())};
}

bool launchDetached(std::vector<std::string> command, const InheritedLimits& inherited) {
  std::vector<char*> arguments;
  arguments.reserve(command.size() + 1);
  for (std::string& argument : command) arguments.push_back(argument.data());
  arguments.push_back(nullptr);
  const pid_t child = _Fork();
  if (child == 0) becomeProgram(arguments.data(), inherited);
  if (child < 0) return false;
  while (waitpid(child, nullptr, 0) < 0 && errno == EINTR) continue;
  return true;
}

}  // namespace orvane
