#pragma once

#include <poll.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <functional>
#include <string>
#include <thread>
#include <vector>

#include "platform/linux/files/file_descriptor.h"

namespace orvane {

/// Turns until the condition holds; false after the time limit.
inline bool eventually(const std::function<bool()>& condition,
                       std::chrono::seconds limit = std::chrono::seconds(20)) {
  const auto deadline = std::chrono::steady_clock::now() + limit;
  while (!condition()) {
    if (std::chrono::steady_clock::now() > deadline) return false;
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  }
  return true;
}

/// A program run for a test, in a process group of its own that ends with the object.
class ChildProcess {
 public:
  explicit ChildProcess(std::vector<std::string> arguments) {
    std::vector<char*> pointers;
    for (auto& argument : arguments) pointers.push_back(argument.data());
    pointers.push_back(nullptr);
    pid_ = ::fork();
    if (pid_ == 0) {
      ::setpgid(0, 0);
      ::execvp(pointers[0], pointers.data());
      ::_exit(127);
    }
    ::setpgid(pid_, pid_);
    pidfd_ = FileDescriptor(static_cast<int>(::syscall(SYS_pidfd_open, pid_, 0)));
  }
  ~ChildProcess() {
    ::kill(-pid_, SIGKILL);
    wait();
  }
  ChildProcess(const ChildProcess&) = delete;
  ChildProcess& operator=(const ChildProcess&) = delete;

  [[nodiscard]] pid_t pid() const { return pid_; }

  /// Waits until it has exited; it stays a zombie.
  [[nodiscard]] bool hasExited() const {
    pollfd ended{.fd = pidfd_.get(), .events = POLLIN, .revents = 0};
    return ::poll(&ended, 1, 20000) == 1;
  }

  void wait() {
    if (!waited_) ::waitpid(pid_, nullptr, 0);
    waited_ = true;
  }

 private:
  pid_t pid_ = -1;
  FileDescriptor pidfd_;
  bool waited_ = false;
};

}  // namespace orvane
