// Running applications as this machine really has them.
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "tests/unit/applications_case.h"

namespace orvane {
namespace {

TEST_F(LinuxApplicationsTest, AProgramWithAnEntryIsAnApplication) {
  const auto program = addProgram("editor");
  addEntry("editor", program + " %U", "Name=\\n The\\teditor\u2066\n");
  const ChildProcess child({program, "600"});
  const auto application = awaitLeader("The editor", "editor");
  ASSERT_TRUE(application);
  EXPECT_EQ(application->processIdentifier, child.pid());
  EXPECT_EQ(application->icon, ApplicationIcon{"editor"});
  EXPECT_EQ(application->activationPolicy, ActivationPolicy::regular);
  EXPECT_EQ(application->executablePath, program);
  const auto& figures = application->figures;
  EXPECT_EQ(figures.threadCount, 1);
  EXPECT_GT(figures.residentSize, 0u);
  EXPECT_GT(figures.virtualSize, figures.residentSize);
  fs::remove(program);  // as an upgrade does
  ProcessTable table({.user = ::getuid()});
  table.update();
  EXPECT_EQ(table.executablePath(child.pid()), program);
  application->handle->kill();
  EXPECT_TRUE(child.hasExited());
}

TEST_F(LinuxApplicationsTest, AnUnclaimedTreeIsNamedByItsFileInOneLineOfText) {
  const std::string file = "odd-\xFF\n\u202Etool";
  const auto program = addProgram(file);
  const ChildProcess child({program, "600"});  // a part of this test program's tree
  const auto pid = runOrphan({program, "600"});
  const auto application = awaitLeader("odd-\uFFFD tool", file);
  ASSERT_TRUE(application);
  EXPECT_EQ(application->processIdentifier, pid);
  EXPECT_EQ(application->executablePath, program);
  EXPECT_EQ(application->activationPolicy, ActivationPolicy::accessory);
  EXPECT_FALSE(application->icon);
  EXPECT_FALSE(ledBy(child.pid()));
  for (int i = 0; i < 2; ++i) runOrphan({program, "600"});
  LinuxApplications narrow({.x11 = nullptr,
                            .applicationDirectories = {},
                            .descriptorLimit = 6,
                            .isWatched = [] { return false; }},
                           time_, time_);
  const auto records = narrow.runningApplications();
  EXPECT_EQ(std::count_if(records.begin(), records.end(),
                          [](const auto& record) { return record.handle != nullptr; }),
            2)
      << "where few may be open";
  fs::remove(program);  // QTemporaryDir can't
}

TEST_F(LinuxApplicationsTest, NamesakesAreToldApart) {
  const auto program = addProgram("twin");
  const std::string name = "Twin of " + folder_.filename().string();
  addEntry("twin", program, "Name=" + name + '\n');
  const ChildProcess first({program, "600"});
  ASSERT_TRUE(awaitLeader(name, "twin"));
  EXPECT_EQ(ledBy(first.pid())->distinction, "");
  const ChildProcess second({program, "601"});
  ASSERT_TRUE(eventually([&] { return ledBy(second.pid()).has_value(); }));
  EXPECT_EQ(ledBy(first.pid())->distinction, "twin 600");
  EXPECT_EQ(ledBy(second.pid())->distinction, "twin 601");
  const auto other = addProgram("other-twin");
  addEntry("other-twin", other, "Name=" + name + '\n');
  const ChildProcess third({other, "600"});
  ASSERT_TRUE(eventually([&] { return ledBy(third.pid()).has_value(); }));
  EXPECT_EQ(ledBy(third.pid())->distinction, "other-twin");
  EXPECT_EQ(ledBy(first.pid())->distinction, "twin 600");
}

TEST_F(LinuxApplicationsTest, DeadProcessesAreNoApplications) {
  const auto program = addProgram("mortal");
  addEntry("mortal", program, "NoDisplay=true\n");
  ChildProcess child({program, "600"});
  const auto application = awaitLeader("The mortal", "mortal");
  ASSERT_TRUE(application);
  EXPECT_EQ(application->activationPolicy, ActivationPolicy::accessory) << "a hidden entry";
  ::kill(child.pid(), SIGKILL);
  ASSERT_TRUE(child.hasExited());
  EXPECT_FALSE(ledBy(child.pid())) << "a zombie";
  child.wait();
  EXPECT_FALSE(ledBy(child.pid()));
  application->handle->kill();  // silent
}

TEST_F(LinuxApplicationsTest, AHandleNeverHitsTheNextProcessWithItsPid) {
  std::ofstream lastPid("/proc/sys/kernel/ns_last_pid");
  if (!(lastPid << ::getpid() << std::flush)) {
    GTEST_SKIP() << "only root can choose the next process id";
  }
  const auto program = addProgram("victim");
  addEntry("victim", program);
  for (int attempt = 0; attempt < 50; ++attempt) {
    ChildProcess first({program, "600"});
    const auto application = awaitLeader("The victim", "victim");
    ASSERT_TRUE(application);
    ::kill(first.pid(), SIGKILL);
    first.wait();
    std::ofstream("/proc/sys/kernel/ns_last_pid") << first.pid() - 1;
    const ChildProcess second({program, "601"});
    if (second.pid() != first.pid()) continue;  // something else took the number meanwhile
    application->handle->kill();
    const auto next = awaitLeader("The victim", "victim");
    ASSERT_TRUE(next) << "the wrong process was killed";
    EXPECT_EQ(next->processIdentifier, second.pid());
    next->handle->kill();
    EXPECT_TRUE(second.hasExited());
    return;
  }
  FAIL() << "no process id could be reused";
}

TEST_F(LinuxApplicationsTest, OtherUsersProcessesAreNoApplications) {
  if (::getuid() != 0) GTEST_SKIP() << "only root can start programs of another user";
  const auto program = addProgram("foreign");
  addEntry("foreign", program);
  for (const auto& path : {folder_, fs::path(program)}) {
    fs::permissions(path, fs::perms::others_exec | fs::perms::others_read, fs::perm_options::add);
  }
  const ChildProcess child(
      {"setpriv", "--reuid=65534", "--regid=65534", "--clear-groups", "--", program, "600"});
  ASSERT_TRUE(eventually([&] {
    std::error_code error;
    return fs::read_symlink("/proc/" + std::to_string(child.pid()) + "/exe", error) == program;
  }));
  for (int i = 0; i < 4; ++i) EXPECT_FALSE(named("The foreign") || ledBy(child.pid()));
}

TEST_F(LinuxApplicationsTest, AScopeIsOneApplication) {
  fs::path root = "/sys/fs/cgroup";
  if (!fs::exists(root / "cgroup.procs")) root /= "unified";
  const fs::path slice = root / ("orvane-test-" + std::to_string(::getpid()));
  const fs::path scope = slice / "app-gnome-org.example.My\\x2dApp-1234.scope";
  std::error_code error;
  fs::create_directories(scope, error);
  if (error) GTEST_SKIP() << "no control group can be made here: " << error.message();
  {
    addEntry("org.example.My-App", "true");
    const ChildProcess parent({addProgram("first"), "600"});
    const ChildProcess other({addProgram("second"), "600"});
    for (const pid_t pid : {parent.pid(), other.pid()}) {
      std::ofstream(scope / "cgroup.procs") << pid << std::flush;
    }
    EXPECT_TRUE(eventually([&] {
      const auto application = ledBy(parent.pid());
      return application && application->localizedName == "The org.example.My-App" &&
             application->figures.threadCount == 2;
    }));
  }
  EXPECT_TRUE(eventually([&] { return fs::remove(scope, error); }));
  fs::remove(slice, error);
}

}  // namespace
}  // namespace orvane
