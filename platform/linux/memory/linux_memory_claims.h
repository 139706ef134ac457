#pragma once

#include <string>

#include "platform/memory_claims.h"

namespace orvane {

/// Where the limits of a claim are read, and where the process says how readily it may be ended.
struct MemoryClaimPaths {
  std::string meminfo = "/proc/meminfo";
  std::string cgroup = "/proc/self/cgroup";
  std::string cgroupRoot = "/sys/fs/cgroup";
  std::string oomScoreAdjustment = "/proc/self/oom_score_adj";
};

/// Anonymous mappings, given only when the kernel says at that moment that as much is available
/// and no memory limit of the process's control groups is in the way.
///
/// While a claim is held the process offers itself to the kernel first (oom_score_adj 1000): should
/// memory run short all the same, this program ends and no other.
class LinuxMemoryClaims : public MemoryClaims {
 public:
  explicit LinuxMemoryClaims(MemoryClaimPaths paths = {});
  ~LinuxMemoryClaims() override;

  [[nodiscard]] std::unique_ptr<MemoryClaim> claim(std::size_t words) override;

 private:
  class RaisedOomScore;
  class Mapping;

  [[nodiscard]] bool isSafe(std::size_t bytes) const;

  MemoryClaimPaths paths_;
  std::shared_ptr<RaisedOomScore> oomScore_;
};

}  // namespace orvane
