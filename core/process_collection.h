#pragma once

#include <cstdint>
#include <vector>

#include "core/observable.h"
#include "core/process_info.h"
#include "core/process_memory_history.h"
#include "platform/clock.h"
#include "platform/dispatch.h"
#include "platform/random_source.h"
#include "platform/running_applications.h"

namespace orvane {

inline constexpr std::uint64_t processInclusionThreshold = 10485760;  ///< bytes, itself excluded
inline constexpr std::size_t topProcessCount = 10;
inline constexpr Duration processHistoryRetention{300.0};

/// A uniformly drawn number in [low, high], both ends included, without bias.
[[nodiscard]] std::uint64_t uniformNumber(RandomSource& random, std::uint64_t low,
                                          std::uint64_t high);

/// Makes the records of the running applications and feeds their histories.
/// Threads: main thread only. The services must outlive it.
class ProcessCollection {
 public:
  ProcessCollection(RunningApplications& applications, RandomSource& random, const Clock& clock);

  /// A record of every application above the inclusion threshold, in the desktop's order; each
  /// gets a point in its history, which is made (one change of `histories`) when it is new.
  [[nodiscard]] std::vector<ProcessInfo> collect(Published<ProcessMemoryHistories>& histories);

  /// Drops, as one change, the histories without a new point for the retention time.
  void prune(Published<ProcessMemoryHistories>& histories) const;

 private:
  [[nodiscard]] ProcessInfo makeRecord(const RunningApplication& application);
  void addHistoryPoint(const ProcessInfo& process, Published<ProcessMemoryHistories>& histories);

  RunningApplications& applications_;
  RandomSource& random_;
  const Clock& clock_;
};

}  // namespace orvane
