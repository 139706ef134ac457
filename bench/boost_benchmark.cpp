// Bytes touched per second by a boost, beside the floor of the same run: the kernel's own pace at
// mapping, writing and unmapping as much memory. Argument: bytes. A run alternates between the two
// so that neither gets the quieter machine:
//   boost_benchmark --benchmark_repetitions=5 --benchmark_enable_random_interleaving=true

#include <benchmark/benchmark.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cstdint>
#include <cstring>
#include <fstream>

#include "core/memory_boost.h"
#include "platform/linux/memory/linux_memory_claims.h"
#include "platform/linux/runtime/linux_random_source.h"

namespace {

using namespace orvane;

/// A queue whose sleeps take no time: only the work of the boost is measured.
class NoSleepQueue : public BackgroundQueue {
 public:
  void async(Block block) override { block(); }
  void sleep(Duration /*duration*/) override {}
  bool isEnding() override { return false; }
};

std::int64_t residentBytes() {
  std::int64_t size = 0;
  std::int64_t resident = 0;
  std::ifstream("/proc/self/statm") >> size >> resident;
  return resident * ::sysconf(_SC_PAGESIZE);
}

void BM_BareMapAndFill(benchmark::State& state) {
  const auto bytes = static_cast<std::size_t>(state.range(0));
  while (state.KeepRunning()) {
    void* memory =
        ::mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (memory == MAP_FAILED) return state.SkipWithError("no memory");
    std::memset(memory, 0, bytes);
    benchmark::ClobberMemory();
    ::munmap(memory, bytes);
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * state.range(0));
}

void BM_Boost(benchmark::State& state) {
  const MemoryStats initial{.inactive = static_cast<std::uint64_t>(state.range(0))};
  LinuxMemoryClaims claims;
  LinuxRandomSource random;
  NoSleepQueue queue;
  if (!claims.claim(boostClaimWords(initial))) return state.SkipWithError("not enough memory");
  const std::int64_t before = residentBytes();
  while (state.KeepRunning()) claimAndRelease(initial, claims, random, queue);
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * state.range(0));
  state.counters["kept_bytes"] = static_cast<double>(residentBytes() - before);
}

BENCHMARK(BM_BareMapAndFill)->Arg(256 << 20)->Arg(std::int64_t{1} << 30)->UseRealTime();
BENCHMARK(BM_Boost)->Arg(256 << 20)->Arg(std::int64_t{1} << 30)->UseRealTime();

}  // namespace

BENCHMARK_MAIN();
