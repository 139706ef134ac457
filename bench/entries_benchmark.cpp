// Looking for changed desktop entries among 400 that haven't changed, as at every tick, beside its
// floor: the least calls of stat that look at a folder and at a call's share of its files.
//
// The counter "ratio" is the CPU time over the floor's, both medians of this run. "read_ms" is what
// reading all of them again costs when one has changed.
#include <benchmark/benchmark.h>
#include <sys/stat.h>

#include <algorithm>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "platform/linux/applications/desktop_entries.h"

namespace orvane {
namespace {

namespace fs = std::filesystem;

constexpr int entryCount = 400;

/// A folder of entries, each with a dozen translations of its name.
class EntryFolder {
 public:
  EntryFolder() {
    std::string name = (fs::temp_directory_path() / "orvane-entries.XXXXXX").string();
    if (::mkdtemp(name.data()) == nullptr) std::abort();
    path_ = name;
    for (int i = 0; i < entryCount; ++i) {
      std::ofstream file(entry(i));
      file << "[Desktop Entry]\nType=Application\nExec=ls\nIcon=ls\nName=Entry " << i << '\n';
      for (char language = 'a'; language < 'm'; ++language) {
        file << "Name[x" << language << "]=Translated\n";
      }
    }
  }
  EntryFolder(const EntryFolder&) = delete;
  EntryFolder& operator=(const EntryFolder&) = delete;
  ~EntryFolder() { fs::remove_all(path_); }

  [[nodiscard]] std::string path() const { return path_.string(); }
  [[nodiscard]] std::string entry(int index) const {
    return (path_ / ("entry" + std::to_string(index) + ".desktop")).string();
  }

 private:
  fs::path path_;
};

double cpuSeconds() {
  timespec now{};
  ::clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

double median(std::vector<double> times) {
  if (times.empty()) return 0;
  const auto middle = times.begin() + static_cast<std::ptrdiff_t>(times.size() / 2);
  std::nth_element(times.begin(), middle, times.end());
  return *middle;
}

void lookAtAll(const std::vector<std::string>& paths) {
  struct stat status {};
  for (const std::string& path : paths) benchmark::DoNotOptimize(::stat(path.c_str(), &status));
}

void BM_UnchangedEntries(benchmark::State& state) {
  const EntryFolder folder;
  std::vector<std::string> least{folder.path()};
  for (int i = 0; i < static_cast<int>(DesktopEntries::filesPerRefresh); ++i) {
    least.push_back(folder.entry(i));
  }
  DesktopEntries entries({folder.path()});
  const double readingStart = cpuSeconds();
  if (!entries.refresh()) std::abort();
  const double readingEnd = cpuSeconds();
  std::vector<double> looks;
  std::vector<double> floors;
  for ([[maybe_unused]] auto _ : state) {
    const double start = cpuSeconds();
    lookAtAll(least);
    const double middle = cpuSeconds();
    const bool changed = entries.refresh();
    const double end = cpuSeconds();
    if (changed) state.SkipWithError("an entry changed");
    floors.push_back(middle - start);
    looks.push_back(end - middle);
    state.SetIterationTime(end - middle);
  }
  state.counters["floor_ms"] = median(floors) * 1e3;
  state.counters["look_ms"] = median(looks) * 1e3;
  state.counters["read_ms"] = (readingEnd - readingStart) * 1e3;
  state.counters["ratio"] = median(looks) / median(floors);
}
BENCHMARK(BM_UnchangedEntries)->Iterations(1000)->UseManualTime()->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace orvane

BENCHMARK_MAIN();
