#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "platform/process_signals.h"

namespace orvane::fakes {

/// Records every kill; `onKill` may change the fake world.
class RecordingProcessSignals : public ProcessSignals {
 public:
  void killProcess(std::int32_t pid, const ProcessHandle* handle) override {
    killed.push_back(pid);
    handles.push_back(handle);
    if (onKill) onKill(pid);
  }

  std::vector<std::int32_t> killed;
  std::vector<const ProcessHandle*> handles;
  std::function<void(std::int32_t)> onKill;
};

}  // namespace orvane::fakes
