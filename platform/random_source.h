#pragma once

#include <cstdint>

namespace orvane {

/// The system's source of random numbers. Threads: any.
class RandomSource {
 public:
  virtual ~RandomSource() = default;

  /// Uniform over all 64-bit numbers.
  [[nodiscard]] virtual std::uint64_t next() = 0;
};

}  // namespace orvane
