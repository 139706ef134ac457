// Running applications as this machine really has them, and what those of several processes hold.
#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>

#include "platform/linux/applications/process_stat.h"
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
  ASSERT_TRUE(waitUntil([&] { return ledBy(second.pid()).has_value(); }));
  EXPECT_EQ(ledBy(first.pid())->distinction, "twin 600");
  EXPECT_EQ(ledBy(second.pid())->distinction, "twin 601");
  const auto other = addProgram("other-twin");
  addEntry("other-twin", other, "Name=" + name + '\n');
  const ChildProcess third({other, "600"});
  ASSERT_TRUE(waitUntil([&] { return ledBy(third.pid()).has_value(); }));
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
  if (!(lastPid << ::getpid() << std::flush)) GTEST_SKIP() << "only root can choose process ids";
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
  for (const auto& path : {folder_, fs::path(program)})
    fs::permissions(path, fs::perms::others_exec | fs::perms::others_read, fs::perm_options::add);
  const ChildProcess child(
      {"setpriv", "--reuid=65534", "--regid=65534", "--clear-groups", "--", program, "600"});
  ASSERT_TRUE(waitUntil([&] {
    std::error_code error;
    return fs::read_symlink("/proc/" + std::to_string(child.pid()) + "/exe", error) == program;
  }));
  for (int i = 0; i < 4; ++i) EXPECT_FALSE(ledBy(child.pid()));
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
    for (const pid_t pid : {parent.pid(), other.pid()})
      std::ofstream(scope / "cgroup.procs") << pid << std::flush;
    EXPECT_TRUE(waitUntil([&] {
      const auto application = ledBy(parent.pid());
      return application && application->localizedName == "The org.example.My-App" &&
             application->figures.threadCount == 2;
    }));
  }
  EXPECT_TRUE(waitUntil([&] { return fs::remove(scope, error); }));
  fs::remove(slice, error);
}

constexpr double mebibyte = 1 << 20;

class ProcessTreesTest : public LinuxApplicationsTest {
 protected:
  /// MB that the model is told of a new list; none for an application that isn't in it.
  double figure(pid_t pid) {
    const auto application = ledBy(pid);
    const auto bytes = application ? application->figures.residentSize.value() : 0;
    return static_cast<double>(bytes) / mebibyte;
  }

  static std::vector<pid_t> treeOf(pid_t root) {
    std::vector<pid_t> processes{root};
    const std::string self = std::to_string(root);
    std::ifstream children("/proc/" + self + "/task/" + self + "/children");
    for (pid_t child = 0; children >> child;) {
      const auto below = treeOf(child);
      processes.insert(processes.end(), below.begin(), below.end());
    }
    return processes;
  }

  /// MB that the kernel says the processes hold, by their own parts of what they share.
  static double proportionalSize(const std::vector<pid_t>& processes) {
    double sum = 0;
    for (const pid_t pid : processes) {
      const auto rollup = readFile("/proc/" + std::to_string(pid) + "/smaps_rollup");
      sum += static_cast<double>(parseProportionalSize(rollup).value_or(0)) / mebibyte;
    }
    return sum;
  }
};

TEST_F(ProcessTreesTest, FiguresAreTheProportionalSizesHoweverMemoryIsShared) {
  // Loaded before the workers were forked; filled by each worker in its own part.
  const std::pair<std::string, std::string> programs[] = {
      {"loaded",
       "block = bytearray(100 << 20)\nblock[::4096] = b'x' * len(block[::4096])\n"
       "fork(lambda i: None)"},
      {"filled",
       "block = mmap.mmap(-1, 160 << 20)\n"
       "def fill(i):\n"
       "  for at in range(i * 40 << 20, (i + 1) * 40 << 20, 4096): block[at] = 1\n"
       "fork(fill)"}};
  const std::string prologue =
      "import mmap, os, sys, time\n"
      "def fork(work):\n"
      "  for i in range(4):\n"
      "    if os.fork() == 0:\n"
      "      work(i); os.open(sys.argv[1] + str(i), os.O_CREAT); time.sleep(600)\n";
  for (const auto& [name, lines] : programs) {
    const auto program = addPython(name);
    addEntry(name, program);
    const ChildProcess child({program, "-c", prologue + lines + "\ntime.sleep(600)", program});
    for (const char worker : {'0', '1', '2', '3'})
      ASSERT_TRUE(waitUntil([&] { return fs::exists(program + worker); })) << name;
    const auto used = proportionalSize(treeOf(child.pid()));
    ASSERT_TRUE(awaitLeader("The " + name, name));
    EXPECT_LT(figure(child.pid()), 1.3 * used) << "before anything was read: " << name;
    // The machine's other programs may have to be read first.
    EXPECT_TRUE(waitUntil([&] {
      time_.runPending();
      return std::abs(figure(child.pid()) - used) < 0.1 * used;
    })) << name
        << ": " << figure(child.pid()) << " of " << used;
  }
}

TEST_F(ProcessTreesTest, AKilledApplicationLeavesNextToNothingBehind) {
  const auto program = addPython("hog");
  const auto ready = (folder_ / "hog-ready").string();
  const auto run = program +
                   " -c 'import os, time; b = bytearray(60 << 20); b[::4096] = b\"x\" * "
                   "len(b[::4096]); os.open(\"" +
                   ready + "\", os.O_CREAT); time.sleep(600)'";
  const auto script = addScript("late", "sleep 0.2\n" + run + "\n:\n");
  addEntry("late", script);
  const std::string runs = "import subprocess, sys; subprocess.run(sys.argv[1] + ';:', shell=True)";
  const std::pair<std::string, std::vector<std::string>> trees[] = {
      {"The late", {script}},
      {"runner", {addPython("runner"), "-c", runs, run}},
      {"hog", {"timeout", "600", "sh", "-c", run + "; :"}},
      {"hog", {"bwrap", "--dev-bind", "/", "/", "--unshare-pid", "sh", "-c", run + "; :"}}};
  for (const auto& [name, command] : trees) {
    SCOPED_TRACE(command[0]);
    const pid_t root = runOrphan(command);
    ASSERT_TRUE(waitUntil([&] { return fs::exists(ready); }));
    const auto processes = treeOf(root);
    ASSERT_GE(processes.size(), 2U);
    const auto application = awaitLeader(name, "hog");
    ASSERT_TRUE(application);
    EXPECT_TRUE(std::count(processes.begin(), processes.end(), application->processIdentifier));
    EXPECT_EQ(application->figures.threadCount, processes.size());
    const double before = proportionalSize(processes);
    application->handle->kill();
    EXPECT_TRUE(waitUntil([&] { return proportionalSize(processes) <= 0.1 * before; }));
    fs::remove(ready);
  }
}

}  // namespace
}  // namespace orvane
