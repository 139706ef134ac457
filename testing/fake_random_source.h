#pragma once

#include <cstdint>
#include <deque>

#include "platform/random_source.h"

namespace orvane::fakes {

/// The numbers a test sets, and a fixed sequence after them.
class FakeRandomSource : public RandomSource {
 public:
  [[nodiscard]] std::uint64_t next() override {
    ++drawCount;
    state_ = state_ * 6364136223846793005ULL + 1442695040888963407ULL;
    if (numbers.empty()) return state_ ^ (state_ >> 29);
    const std::uint64_t number = numbers.front();
    numbers.pop_front();
    return number;
  }

  std::deque<std::uint64_t> numbers;
  int drawCount = 0;

 private:
  std::uint64_t state_ = 1;
};

}  // namespace orvane::fakes
