// One sampling tick's list of applications beside the least that reading the same figures costs
// without open descriptors: open, read and close statm and stat of every process.
//
// The counter "ratio" is the tick's CPU time divided by that floor's, both medians of this run.
#include <benchmark/benchmark.h>
#include <dirent.h>
#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <cstdlib>
#include <ctime>
#include <string>
#include <vector>

#include "platform/linux/descriptor_limit.h"
#include "platform/linux/linux_applications.h"

namespace orvane {
namespace {

constexpr int sleeperCount = 400;
constexpr int settlingTicks = 20;

/// Sleeping processes; as one tree below this program, or each a tree (an application) of its own.
class Sleepers {
 public:
  explicit Sleepers(bool separate) {
    ::prctl(PR_SET_CHILD_SUBREAPER, separate ? 0 : 1);
    std::array<int, 2> pids{};
    if (::pipe2(pids.data(), O_CLOEXEC) != 0) std::abort();
    for (int i = 0; i < sleeperCount; ++i) {
      const pid_t child = ::fork();
      if (child == 0) startSleeper(separate, pids[1]);
      if (separate) ::waitpid(child, nullptr, 0);
      pid_t sleeper = 0;
      if (::read(pids[0], &sleeper, sizeof sleeper) == sizeof sleeper) sleepers_.push_back(sleeper);
    }
    ::close(pids[0]);
    ::close(pids[1]);
  }

  ~Sleepers() {
    for (const pid_t sleeper : sleepers_) ::kill(sleeper, SIGKILL);
    for (const pid_t sleeper : sleepers_) ::waitpid(sleeper, nullptr, 0);
  }
  Sleepers(const Sleepers&) = delete;
  Sleepers& operator=(const Sleepers&) = delete;

 private:
  [[noreturn]] static void startSleeper(bool separate, int pids) {
    if (separate && ::fork() != 0) ::_exit(0);
    const pid_t self = ::getpid();
    if (::write(pids, &self, sizeof self) != sizeof self) ::_exit(1);
    ::execlp("sleep", "sleep", "600", nullptr);
    ::_exit(1);
  }

  std::vector<pid_t> sleepers_;
};

double cpuSeconds() {
  timespec now{};
  ::clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

void readOnce(const std::string& path) {
  std::array<char, 2048> content{};
  const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (file < 0) return;
  benchmark::DoNotOptimize(::read(file, content.data(), content.size()));
  ::close(file);
}

void readEveryProcess() {
  DIR* const processes = ::opendir("/proc");
  while (const dirent* process = ::readdir(processes)) {
    if (process->d_name[0] < '0' || process->d_name[0] > '9') continue;
    const std::string folder = std::string("/proc/") + process->d_name;
    readOnce(folder + "/statm");
    readOnce(folder + "/stat");
  }
  ::closedir(processes);
}

std::size_t tick(LinuxApplications& applications) {
  const auto list = applications.runningApplications();
  for (const auto& application : list) {
    benchmark::DoNotOptimize(applications.taskFigures(application.processIdentifier));
    benchmark::DoNotOptimize(applications.executablePath(application.processIdentifier));
  }
  return list.size();
}

double median(std::vector<double> times) {
  if (times.empty()) return 0;
  const auto middle = times.begin() + static_cast<std::ptrdiff_t>(times.size() / 2);
  std::nth_element(times.begin(), middle, times.end());
  return *middle;
}

void BM_SamplingTick(benchmark::State& state) {
  const Sleepers sleepers(state.range(0) != 0);
  const DescriptorLimit limit;
  LinuxApplications applications(LinuxApplications::desktopOptions(limit.current()));
  for (int i = 0; i < settlingTicks; ++i) tick(applications);
  std::vector<double> ticks;
  std::vector<double> floors;
  std::size_t count = 0;
  for ([[maybe_unused]] auto _ : state) {
    const double start = cpuSeconds();
    readEveryProcess();
    const double middle = cpuSeconds();
    count = tick(applications);
    const double end = cpuSeconds();
    floors.push_back(middle - start);
    ticks.push_back(end - middle);
    state.SetIterationTime(end - middle);
  }
  state.counters["applications"] = static_cast<double>(count);
  state.counters["floor_ms"] = median(floors) * 1e3;
  state.counters["tick_ms"] = median(ticks) * 1e3;
  state.counters["ratio"] = median(ticks) / median(floors);
}
BENCHMARK(BM_SamplingTick)
    ->ArgName("separate")
    ->Arg(0)
    ->Arg(1)
    ->Iterations(200)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace orvane

BENCHMARK_MAIN();
