#include "core/process_collection.h"

#include "core/memory_stats.h"
#include "core/utf8.h"

namespace orvane {
namespace {

constexpr std::uint64_t virtualSizeFactor = 3;

std::uint64_t estimatedSize(RandomSource& random, ActivationPolicy policy) {
  return policy == ActivationPolicy::regular ? uniformNumber(random, 50'000'000, 500'000'000)
                                             : uniformNumber(random, 10'000'000, 100'000'000);
}

}  // namespace

std::uint64_t uniformNumber(RandomSource& random, std::uint64_t low, std::uint64_t high) {
  const std::uint64_t count = high - low + 1;
  // The numbers below 2^64 mod count would make some results likelier than others.
  const std::uint64_t rejected = (0 - count) % count;
  std::uint64_t number = random.next();
  while (number < rejected) number = random.next();
  return low + number % count;
}

ProcessCollection::ProcessCollection(RunningApplications& applications, RandomSource& random,
                                     const Clock& clock)
    : applications_(applications), random_(random), clock_(clock) {}

std::vector<ProcessInfo> ProcessCollection::collect(Published<ProcessMemoryHistories>& histories) {
  std::vector<ProcessInfo> records;
  for (const auto& application : applications_.runningApplications()) {
    ProcessInfo record = makeRecord(application);
    if (record.memoryUsage <= processInclusionThreshold) continue;
    addHistoryPoint(record, histories);
    records.push_back(std::move(record));
  }
  return records;
}

ProcessInfo ProcessCollection::makeRecord(const RunningApplication& application) {
  const TaskFigures& figures = application.figures;
  std::uint64_t resident = figures.residentSize.value_or(0);
  std::uint64_t virtualSize = figures.virtualSize.value_or(0);
  if (resident == 0) {
    resident = estimatedSize(random_, application.activationPolicy);
    virtualSize = virtualSizeFactor * resident;
  } else if (virtualSize < resident) {
    virtualSize = virtualSizeFactor * resident;
  }
  return {.name = application.localizedName.value_or("Unknown"),
          .memoryUsage = resident,
          .pid = application.processIdentifier,
          .icon = application.icon,
          .threadCount = figures.threadCount.value_or(0),
          .processPath = decodeUtf8(application.executablePath),
          .privateMemory = resident,
          .virtualMemory = virtualSize,
          .distinction = application.distinction,
          .handle = application.handle};
}

void ProcessCollection::addHistoryPoint(const ProcessInfo& process,
                                        Published<ProcessMemoryHistories>& histories) {
  if (!histories.get().contains(process.pid)) {
    histories.mutate([&](auto& map) {
      map.emplace(process.pid, std::make_shared<ProcessMemoryHistory>(clock_));
    });
  }
  histories.get().at(process.pid)->addDataPoint(megabytes(process.memoryUsage));
}

void ProcessCollection::prune(Published<ProcessMemoryHistories>& histories) const {
  const Date cutoff =
      clock_.now() - std::chrono::duration_cast<Date::duration>(processHistoryRetention);
  ProcessMemoryHistories kept;
  for (const auto& [pid, history] : histories.get()) {
    if (history->lastSeen() > cutoff) kept.emplace(pid, history);
  }
  histories.set(std::move(kept));
}

}  // namespace orvane
