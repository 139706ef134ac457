#pragma once

#include <chrono>

namespace orvane {

using Date = std::chrono::system_clock::time_point;

/// The wall clock. Threads: any.
class Clock {
 public:
  virtual ~Clock() = default;

  [[nodiscard]] virtual Date now() const = 0;
};

}  // namespace orvane
