#pragma once

#include <gtest/gtest.h>
#include <poll.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <deque>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string>
#include <vector>

#include "platform/linux/applications/linux_applications.h"
#include "platform/linux/files/file_descriptor.h"
#include "testing/virtual_time.h"
#include "tests/unit/test_support.h"

namespace orvane {

namespace fs = std::filesystem;

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

/// Running applications as this machine really has them, with desktop entries of the test's own.
class LinuxApplicationsTest : public testing::Test {
 protected:
  explicit LinuxApplicationsTest(xcb_connection_t* x11 = nullptr, const std::string& entries = "")
      : applications_({.x11 = x11,
                       .applicationDirectories = {entries.empty() ? folder_.string() : entries},
                       .descriptorLimit = 4000,
                       .isWatched = [] { return true; }},
                      time_, time_) {}

  void addEntry(const std::string& id, const std::string& exec, const std::string& more = "") {
    directory_.write(id + ".desktop", "[Desktop Entry]\nType=Application\nName=The " + id +
                                          "\nIcon=" + id + "\nExec=" + exec + "\n" + more);
  }

  std::string addScript(const std::string& name, const std::string& lines) {
    const std::string path = directory_.write(name, "#!/bin/bash\n" + lines);
    fs::permissions(path, fs::perms::owner_all);
    return path;
  }

  /// A copy of a program with a name and an executable of its own.
  std::string addProgram(const std::string& name, const std::string& of = "/usr/bin/sleep") {
    fs::copy_file(fs::canonical(of), folder_ / name);
    return (folder_ / name).string();
  }
  std::string addPython(const std::string& name) { return addProgram(name, "/usr/bin/python3"); }

  /// Runs a command that nothing joins to this program, until the end of the test.
  pid_t runOrphan(std::vector<std::string> command) {
    const auto launch = addScript("launch", "\"$@\" &\necho $! > \"$0-pid\"\n");
    command.insert(command.begin(), launch);
    ChildProcess& launcher = orphans_.emplace_back(command);
    EXPECT_TRUE(launcher.hasExited());
    launcher.wait();
    pid_t pid = 0;
    std::ifstream(launch + "-pid") >> pid;
    return pid;
  }

  using Found = std::optional<RunningApplication>;

  template <typename Condition>
  Found find(Condition fits) {
    for (auto& application : applications_.runningApplications())
      if (fits(application)) return application;
    return {};
  }
  Found ledBy(pid_t pid) {
    return find([&](const auto& each) { return each.processIdentifier == pid; });
  }

  /// Waits until the application exists and is led by this program of the test's (other runs of
  /// the tests may have namesakes), which is mapped: exec() names a program before.
  Found awaitLeader(const std::string& name, const std::string& program) {
    Found application;
    (void)waitUntil([&] {
      application = find([&](const auto& each) {
        return each.localizedName == name && each.executablePath == folder_ / program &&
               each.figures.virtualSize > each.figures.residentSize;
      });
      return application.has_value();
    });
    return application;
  }

  TestDirectory directory_;
  fs::path folder_ = directory_.path();
  fakes::VirtualTime time_;
  LinuxApplications applications_;
  std::deque<ChildProcess> orphans_;
};

}  // namespace orvane
