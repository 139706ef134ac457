#pragma once

#include <cstdint>

#include "platform/random_source.h"

namespace orvane::fakes {

/// A fixed sequence.
class FakeRandomSource : public RandomSource {
 public:
  [[nodiscard]] std::uint64_t next() override {
    ++drawCount;
    state_ = state_ * 6364136223846793005ULL + 1442695040888963407ULL;
    return state_ ^ (state_ >> 29);
  }

  int drawCount = 0;

 private:
  std::uint64_t state_ = 1;
};

}  // namespace orvane::fakes
