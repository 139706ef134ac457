#pragma once

#include <array>
#include <cstddef>
#include <mutex>

#include "platform/random_source.h"

namespace orvane {

/// Random numbers of the kernel, fetched as many at a time as getentropy() gives: cheap enough to
/// draw half a million in a row. QRandomGenerator::system() asks the processor for each number,
/// which takes 25 times as long.
class LinuxRandomSource : public RandomSource {
 public:
  [[nodiscard]] std::uint64_t next() override;

 private:
  void refill();

  std::mutex mutex_;
  std::array<std::uint64_t, 32> numbers_{};
  std::size_t position_ = numbers_.size();
};

}  // namespace orvane
