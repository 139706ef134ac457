#pragma once

#include <cstdint>

namespace orvane {

class ProcessHandle;

/// Sends signals to processes.
/// Threads: main thread only. Failures are silent: the process may be gone already.
class ProcessSignals {
 public:
  virtual ~ProcessSignals() = default;

  /// Ends the process at once (SIGKILL). With a handle, exactly the process the handle was made
  /// for is hit and a reused `pid` never is; without one nothing is sent.
  virtual void killProcess(std::int32_t pid, const ProcessHandle* handle) = 0;
};

}  // namespace orvane
