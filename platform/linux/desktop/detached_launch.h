#pragma once

#include <sys/resource.h>

#include <string>
#include <vector>

namespace orvane {

/// What a program gets from whoever starts it, and what this process changes for itself.
struct InheritedLimits {
  rlim_t openFiles = RLIM_INFINITY;  ///< soft limit; the hard limit is used when that is lower
  std::string oomScoreAdjustment;    ///< text of /proc/self/oom_score_adj; empty: as it is now

  /// Those of this process at the moment.
  [[nodiscard]] static InheritedLimits current();
};

/// Starts a program that lives on its own: in a session of its own, without input or output, with
/// default signals and with what `inherited` says.
///
/// `command` holds the program's absolute path and its arguments. Returns as soon as the program
/// has been told to start; false when no process could be made. Threads: any.
bool launchDetached(std::vector<std::string> command, const InheritedLimits& inherited);

}  // namespace orvane
