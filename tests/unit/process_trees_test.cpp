// Applications of several real processes: what they hold, and what is left when one is ended.
#include <algorithm>
#include <cmath>
#include <fstream>

#include "tests/unit/applications_case.h"

namespace orvane {
namespace {

constexpr std::uint64_t mebibyte = 1 << 20;

class ProcessTreesTest : public LinuxApplicationsTest {
 protected:
  /// MB that the model is told of a new list; none for an application that isn't in it.
  double figure(pid_t pid) {
    const auto application = ledBy(pid);
    const auto bytes = application ? application->figures.residentSize.value() : 0;
    return static_cast<double>(bytes) / static_cast<double>(mebibyte);
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
      std::ifstream file("/proc/" + std::to_string(pid) + "/smaps_rollup");
      for (std::string key; file >> key;) {
        double kibibytes = 0;
        if (key == "Pss:" && file >> kibibytes) sum += kibibytes / 1024;
      }
    }
    return sum;
  }
  static double proportionalSize(pid_t root) { return proportionalSize(treeOf(root)); }
};

TEST_F(ProcessTreesTest, FiguresAreTheProportionalSizesHoweverMemoryIsShared) {
  // Loaded before the workers were forked; shared, each worker filling its part of it.
  const std::string lines[] = {
      "block = bytearray(100 << 20)\nblock[::4096] = b'x' * len(block[::4096])\nfork(lambda i: "
      "None)",
      "block = mmap.mmap(-1, 160 << 20)\n"
      "def fill(i):\n"
      "  for at in range(i * 40 << 20, (i + 1) * 40 << 20, 4096): block[at] = 1\n"
      "fork(fill)"};
  const std::string prologue =
      "import mmap, os, sys, time\n"
      "def fork(work):\n"
      "  for i in range(4):\n"
      "    if os.fork() == 0:\n"
      "      work(i); os.open(sys.argv[1] + str(i), os.O_CREAT); time.sleep(600)\n";
  for (const auto& line : lines) {
    const auto program = addPython("workers");
    addEntry("workers", program);
    const auto ready = (folder_ / "ready").string();
    const ChildProcess child({program, "-c", prologue + line + "\ntime.sleep(600)", ready});
    ASSERT_TRUE(eventually([&] {
      return fs::exists(ready + "0") && fs::exists(ready + "1") && fs::exists(ready + "2") &&
             fs::exists(ready + "3");
    }));
    const auto used = proportionalSize(child.pid());
    ASSERT_TRUE(awaitLeader("The workers", "workers"));
    EXPECT_LT(figure(child.pid()), 1.3 * used) << "before anything was read: " << line;
    // The machine's other programs may have to be read first.
    EXPECT_TRUE(eventually([&] {
      time_.runPending();
      return named("The workers") && std::abs(figure(child.pid()) - used) < 0.1 * used;
    })) << line
        << ": " << figure(child.pid()) << " of " << used;
    for (int i = 0; i < 4; ++i) fs::remove(ready + std::to_string(i));
    fs::remove(program);
  }
}

TEST_F(ProcessTreesTest, AKilledApplicationLeavesNextToNothingBehind) {
  const auto program = addPython("hog");
  const auto ready = (folder_ / "hog-ready").string();
  const auto run = program +
                   " -c 'import os, time; block = bytearray(60 << 20); "
                   "block[::4096] = b\"x\" * len(block[::4096]); "
                   "os.open(\"" +
                   ready + "\", os.O_CREAT); time.sleep(600)'";
  const auto script = addScript("late", "sleep 0.2\n" + run + "\n:\n");
  addEntry("late", script);
  const std::string runs =
      "import subprocess, sys; subprocess.run(sys.argv[1] + '; :', shell=True)";
  const std::pair<std::string, std::vector<std::string>> trees[] = {
      {"The late", {script}},
      {"runner", {addPython("runner"), "-c", runs, run}},
      {"hog", {"timeout", "600", "sh", "-c", run + "; :"}},
      {"hog", {"bwrap", "--dev-bind", "/", "/", "--unshare-pid", "sh", "-c", run + "; :"}}};
  for (const auto& [name, command] : trees) {
    SCOPED_TRACE(command[0]);
    const pid_t root = runOrphan(command);
    ASSERT_TRUE(eventually([&] { return fs::exists(ready); }));
    const auto processes = treeOf(root);
    ASSERT_GE(processes.size(), 2U);
    const auto application = awaitLeader(name, "hog");
    ASSERT_TRUE(application);
    EXPECT_TRUE(std::count(processes.begin(), processes.end(), application->processIdentifier));
    EXPECT_EQ(application->figures.threadCount, processes.size());
    const double before = proportionalSize(processes);
    application->handle->kill();
    EXPECT_TRUE(eventually([&] { return proportionalSize(processes) <= 0.1 * before; }));
    fs::remove(ready);
  }
}

}  // namespace
}  // namespace orvane
