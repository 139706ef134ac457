#pragma once

#include <array>
#include <cstddef>
#include <mutex>

#include "platform/random_source.h"

namespace orvane {

/// Random numbers of the kernel, fetched 512 at a time: as good as one getrandom() a number, and
/// cheap enough to draw half a million in a row.
class LinuxRandomSource : public RandomSource {
 public:
  [[nodiscard]] std::uint64_t next() override;

 private:
  void refill();

  std::mutex mutex_;
  std::array<std::uint64_t, 512> numbers_{};
  std::size_t position_ = numbers_.size();
};

}  // namespace orvane
