#pragma once

#include "platform/clock.h"

namespace orvane {

/// The system's wall clock.
class LinuxClock : public Clock {
 public:
  [[nodiscard]] Date now() const override { return std::chrono::system_clock::now(); }
};

}  // namespace orvane
