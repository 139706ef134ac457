#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <optional>
#include <string>

#include "platform/linux/applications/linux_applications.h"
#include "tests/fakes/virtual_time.h"
#include "tests/unit/child_process.h"
#include "tests/unit/test_files.h"

namespace orvane {

namespace fs = std::filesystem;

/// Running applications as this machine really has them, with desktop entries of the test's own.
class LinuxApplicationsTest : public testing::Test {
 protected:
  void addEntry(const std::string& id, const std::string& exec, const std::string& more = "") {
    std::ofstream(folder_ / (id + ".desktop")) << "[Desktop Entry]\nType=Application\nName=The "
                                               << id << "\nIcon=" << id << "\nExec=" << exec << '\n'
                                               << more;
  }

  std::string addScript(const std::string& name, const std::string& lines) {
    const fs::path path = folder_ / name;
    std::ofstream(path) << "#!/bin/bash\n" << lines;
    fs::permissions(path, fs::perms::owner_all);
    return path.string();
  }

  /// A program of its own name and executable.
  std::string addProgram(const std::string& name) {
    const fs::path path = folder_ / name;
    fs::copy_file(fs::canonical("/usr/bin/sleep"), path);
    return path.string();
  }

  /// A Python of its own name and executable.
  std::string addPython(const std::string& name) {
    const fs::path path = folder_ / name;
    fs::copy_file(fs::canonical("/usr/bin/python3"), path);
    return path.string();
  }

  std::optional<RunningApplication> ledBy(pid_t pid) {
    for (auto& application : applications_.runningApplications()) {
      if (application.processIdentifier == pid) return application;
    }
    return {};
  }

  /// As of a new list; none for an application that isn't in it.
  std::optional<TaskFigures> figuresOf(pid_t pid) {
    const auto application = ledBy(pid);
    return application ? std::optional(application->figures) : std::nullopt;
  }

  /// The application of this name whose leader runs one of the test's own programs: other runs of
  /// the tests may have namesakes.
  std::optional<RunningApplication> named(const std::string& name) {
    for (auto& application : applications_.runningApplications()) {
      const bool isOwn = application.executablePath.starts_with(folder_.string());
      if (isOwn && application.localizedName == name) return application;
    }
    return {};
  }

  /// Waits until the application exists and is led by the executable of this name.
  std::optional<RunningApplication> awaitLeader(const std::string& name,
                                                const std::string& executable) {
    std::optional<RunningApplication> application;
    const bool came = eventually([&] {
      application = named(name);
      return application && fs::path(application->executablePath).filename() == executable;
    });
    return came ? application : std::nullopt;
  }

  void killLeader(const RunningApplication& application) {
    if (application.handle) application.handle->kill();
  }

  TestDirectory directory_;
  fs::path folder_ = directory_.path();
  fakes::VirtualTime time_;
  LinuxApplications applications_{{.x11 = nullptr,
                                   .applicationDirectories = {folder_.string()},
                                   .descriptorLimit = 4000,
                                   .isWatched = [] { return true; }},
                                  time_,
                                  time_};
};

}  // namespace orvane
