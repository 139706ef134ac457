#include <gtest/gtest.h>
#include <sys/resource.h>

#include <filesystem>
#include <fstream>

#include "platform/linux/bus/session_bus.h"
#include "platform/linux/desktop/linux_desktop_opener.h"
#include "platform/linux/memory/linux_memory_claims.h"
#include "platform/linux/runtime/linux_standard_output.h"
#include "tests/unit/test_bus.h"

namespace orvane {
namespace {

/// An empty desktop whose xdg-open writes down what it is called with.
class DesktopOpener : public ::testing::Test {
 protected:
  DesktopOpener() {
    std::ofstream(file("xdg-open"))
        << "#!/bin/sh\nprintf '%s|' \"$@\" \"$(ulimit -n)\" \"$(cat /proc/self/oom_score_adj)\" "
           "\"$PWD\" \"$(readlink /proc/$$/fd/0 /proc/$$/fd/1 /proc/$$/fd/2 | uniq)\" "
           "\"$((0x$(sed -n 's/^SigIgn:.//p' /proc/$$/status) & 0x1000))\" > "
        << file("part") << "\nmv " << file("part") << ' ' << file("opened") << "\necho noise\n";
    std::filesystem::permissions(file("xdg-open"), std::filesystem::perms::owner_all);
  }

  [[nodiscard]] std::string file(const std::string& name) const { return directory_.path(name); }

  std::string opened() {
    EXPECT_TRUE(waitUntil([&] { return std::filesystem::exists(file("opened")); }));
    std::string line = readFile(file("opened"));
    std::filesystem::remove(file("opened"));
    return line;
  }

  TestDirectory directory_;
  ScopedEnvironment path_{"PATH",
                          directory_.path() + ":" + qEnvironmentVariable("PATH").toStdString()};
};

TEST_F(DesktopOpener, LaunchesTheDesktopsCommandWithTheLimitsOfTheSession) {
  rlimit limit{};
  getrlimit(RLIMIT_NOFILE, &limit);
  const std::string before = std::to_string(limit.rlim_cur);
  std::string adjustment = readFile("/proc/self/oom_score_adj");
  adjustment.pop_back();
  SessionBus bus;
  LinuxDesktopOpener opener(bus);
  limit.rlim_cur -= 10;
  setrlimit(RLIMIT_NOFILE, &limit);
  const LinuxStandardOutput ignoresBrokenPipes;
  LinuxMemoryClaims claims;
  auto claim = claims.claim(1024);  // as during a boost
  const std::string mail = "mailto:a@b.example?subject=A%20B&body=C%0AD%27$(id)";
  for (const std::string& url : {std::string("--help"), std::string("https://a b"), mail}) {
    opener.openUrl(url);
  }
  EXPECT_EQ(opened(), mail + "|" + before + "|" + adjustment + "|" +
                          std::filesystem::current_path().string() + "|/dev/null|0|");
  limit.rlim_cur += 10;
  setrlimit(RLIMIT_NOFILE, &limit);
}

TEST_F(DesktopOpener, OpensTheFolderWhereNoFileManagerAnswers) {
  EXPECT_EQ(fileAddress("/a b/#1?%/\xff\xc3\xa9~"), "file:///a%20b/%231%3F%25/%FF%C3%A9~");
  const TestBus daemon;
  const ScopedEnvironment address("DBUS_SESSION_BUS_ADDRESS", daemon.address());
  SessionBus bus;
  LinuxDesktopOpener opener(bus);
  const std::string program = directory_.write("a program", "x");
  const std::string folder = "file://" + directory_.path();
  opener.revealFile(program);
  EXPECT_TRUE(opened().starts_with(folder)) << "no bus yet";
  bus.start();
  ASSERT_TRUE(waitUntil([&] { return bus.isConnected(); }));
  opener.revealFile(program);
  EXPECT_TRUE(opened().starts_with(folder)) << "nobody on it";
  for (const auto& path : {file("missing/program"), std::string("relative"), file("missing")}) {
    opener.revealFile(path);
  }
  EXPECT_TRUE(opened().starts_with(folder)) << "only the folder that exists";
}

}  // namespace
}  // namespace orvane
