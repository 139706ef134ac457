// One sampling tick of the model, sample and list, beside the least that reading the same figures
// costs without open descriptors: open, read and close statm and stat of every process.
//
// 400 processes in 40 applications are a full desktop.
// The counter "ratio" is the tick's CPU time divided by that floor's, both medians of this run.
#include <benchmark/benchmark.h>
#include <dirent.h>
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "platform/linux/applications/linux_applications.h"
#include "platform/linux/memory/linux_memory_counters.h"
#include "platform/linux/runtime/descriptor_limit.h"
#include "platform/linux/runtime/linux_clock.h"
#include "testing/fake_services.h"

namespace orvane {
namespace {

constexpr int settlingTicks = 20;

/// Sleeping processes: so many trees, each an application, of equally many.
class Sleepers {
 public:
  Sleepers(int processes, int applications) {
    std::array<int, 2> pids{};
    if (::pipe2(pids.data(), O_CLOEXEC) != 0) std::abort();
    for (int i = 0; i < applications; ++i) {
      const pid_t child = ::fork();
      if (child == 0) startApplication(processes / applications, pids[1]);
      ::waitpid(child, nullptr, 0);
    }
    for (int i = 0; i < processes; ++i) {
      pid_t sleeper = 0;
      if (::read(pids[0], &sleeper, sizeof sleeper) == sizeof sleeper) sleepers_.push_back(sleeper);
    }
    ::close(pids[0]);
    ::close(pids[1]);
  }

  ~Sleepers() {
    for (const pid_t sleeper : sleepers_) ::kill(sleeper, SIGKILL);
    // Nobody's children: until the system has buried them they would be in the next row's floor.
    for (const pid_t sleeper : sleepers_) {
      for (int i = 0; i < 1000 && ::kill(sleeper, 0) == 0; ++i) ::usleep(10'000);
    }
  }
  Sleepers(const Sleepers&) = delete;
  Sleepers& operator=(const Sleepers&) = delete;

 private:
  /// An orphan, so that nothing joins it to this program, and its children.
  [[noreturn]] static void startApplication(int processes, int pids) {
    if (::fork() != 0) ::_exit(0);
    for (int i = 1; i < processes; ++i) {
      if (::fork() == 0) sleep(pids);
    }
    sleep(pids);
  }

  [[noreturn]] static void sleep(int pids) {
    const pid_t self = ::getpid();
    if (::write(pids, &self, sizeof self) != sizeof self) ::_exit(1);
    ::execlp("sleep", "sleep", "600", nullptr);
    ::_exit(1);
  }

  std::vector<pid_t> sleepers_;
};

/// A user's own desktop entries, as many as the machine has beside its own.
class EntryHome {
 public:
  explicit EntryHome(int count) {
    std::string name = (std::filesystem::temp_directory_path() / "orvane-home.XXXXXX").string();
    if (::mkdtemp(name.data()) == nullptr) std::abort();
    path_ = name;
    std::filesystem::create_directories(path_ / "applications");
    for (int i = 0; i < count; ++i) {
      const std::string number = std::to_string(i);
      std::ofstream(path_ / "applications" / ("entry" + number + ".desktop"))
          << "[Desktop Entry]\nType=Application\nName=Entry " << number << "\nExec=sleep " << number
          << '\n';
    }
    ::setenv("XDG_DATA_HOME", path_.c_str(), 1);
  }
  ~EntryHome() {
    ::unsetenv("XDG_DATA_HOME");
    std::filesystem::remove_all(path_);
  }
  EntryHome(const EntryHome&) = delete;
  EntryHome& operator=(const EntryHome&) = delete;

 private:
  std::filesystem::path path_;
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

/// The model on the real memory and the real processes.
struct Model {
  fakes::FakeServices others;
  DescriptorLimit limit;
  LinuxMemoryCounters counters;
  LinuxApplications applications{
      LinuxApplications::desktopOptions(limit.current(), [] { return true; }), others.time,
      others.time};
  LinuxClock clock;
  std::shared_ptr<MemoryManager> manager = MemoryManager::create(services());

  MemoryManagerServices services() {
    const MemoryManagerServices fake = others.services();
    return {.counters = counters,
            .claims = fake.claims,
            .applications = applications,
            .notifications = fake.notifications,
            .notificationCentre = fake.notificationCentre,
            .preferences = fake.preferences,
            .mainQueue = fake.mainQueue,
            .backgroundQueue = fake.backgroundQueue,
            .timers = fake.timers,
            .clock = clock,
            .random = fake.random,
            .output = fake.output};
  }

  void tick() { others.time.advance(samplingInterval); }
};

/// A child that has so many bytes of its own.
class Holder {
 public:
  explicit Holder(std::size_t bytes) {
    std::array<int, 2> ready{};
    if (::pipe2(ready.data(), O_CLOEXEC) != 0) std::abort();
    child_ = ::fork();
    if (child_ == 0) {
      const std::vector<char> block(bytes, 'x');
      const char done = 1;
      if (::write(ready[1], &done, 1) != 1) ::_exit(block.empty() ? 2 : 1);
      ::pause();
      ::_exit(0);
    }
    char byte = 0;
    if (::read(ready[0], &byte, 1) != 1) std::abort();
    ::close(ready[0]);
    ::close(ready[1]);
  }
  ~Holder() {
    ::kill(child_, SIGKILL);
    ::waitpid(child_, nullptr, 0);
  }
  Holder(const Holder&) = delete;
  Holder& operator=(const Holder&) = delete;

  [[nodiscard]] std::string file(const char* name) const {
    return "/proc/" + std::to_string(child_) + "/" + name;
  }

 private:
  pid_t child_ = -1;
};

double median(std::vector<double> times) {
  if (times.empty()) return 0;
  const auto middle = times.begin() + static_cast<std::ptrdiff_t>(times.size() / 2);
  std::nth_element(times.begin(), middle, times.end());
  return *middle;
}

void BM_SamplingTick(benchmark::State& state) {
  const Sleepers sleepers(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
  Model model;
  for (int i = 0; i < settlingTicks; ++i) model.tick();
  std::vector<double> ticks;
  std::vector<double> floors;
  for ([[maybe_unused]] auto _ : state) {
    const double start = cpuSeconds();
    readEveryProcess();
    const double middle = cpuSeconds();
    model.tick();
    const double end = cpuSeconds();
    floors.push_back(middle - start);
    ticks.push_back(end - middle);
    state.SetIterationTime(end - middle);
  }
  state.counters["floor_ms"] = median(floors) * 1e3;
  state.counters["tick_ms"] = median(ticks) * 1e3;
  state.counters["ratio"] = median(ticks) / median(floors);
  state.counters["bound"] = 0.4;
}
BENCHMARK(BM_SamplingTick)
    ->ArgNames({"processes", "applications"})
    ->Args({100, 10})
    ->Args({400, 1})
    ->Args({400, 40})
    ->Args({400, 400})
    ->Args({1000, 200})
    ->Args({4000, 200})
    ->Iterations(100)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

/// The longest of the first ticks, which meet every process and every desktop entry for the first
/// time: so long the event loop stands still.
void BM_FirstTicks(benchmark::State& state) {
  const int count = static_cast<int>(state.range(0));
  const Sleepers sleepers(count, count);
  const EntryHome entries(count);
  double longest = 0;
  for ([[maybe_unused]] auto _ : state) {
    const double start = cpuSeconds();
    Model model;
    state.SetIterationTime(cpuSeconds() - start);
    for (int i = 0; i < 5; ++i) {
      const double before = cpuSeconds();
      model.tick();
      longest = std::max(longest, cpuSeconds() - before);
    }
  }
  state.counters["longest_ms"] = longest * 1e3;
  state.counters["bound"] = 100;
}
BENCHMARK(BM_FirstTicks)
    ->ArgName("applications")
    ->Arg(10)
    ->Arg(200)
    ->Arg(5000)
    ->Iterations(1)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

/// What the truth about one process costs, beside the cheap figures of it.
void BM_ProportionalSize(benchmark::State& state) {
  constexpr std::size_t mebibyte = 1 << 20;
  const Holder holder(static_cast<std::size_t>(state.range(0)) * mebibyte);
  std::vector<double> readings;
  std::vector<double> cheap;
  for ([[maybe_unused]] auto _ : state) {
    const double start = cpuSeconds();
    readOnce(holder.file("smaps_rollup"));
    const double middle = cpuSeconds();
    readOnce(holder.file("statm"));
    const double end = cpuSeconds();
    readings.push_back(middle - start);
    cheap.push_back(end - middle);
    state.SetIterationTime(middle - start);
  }
  state.counters["statm_ms"] = median(cheap) * 1e3;
  state.counters["ms_per_GB"] = median(readings) * 1e3 * 1024 / static_cast<double>(state.range(0));
}
BENCHMARK(BM_ProportionalSize)
    ->ArgName("MB")
    ->Arg(100)
    ->Arg(1024)
    ->Iterations(20)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace orvane

BENCHMARK_MAIN();
