#include "platform/linux/runtime/linux_random_source.h"

#include <unistd.h>

#include <random>

namespace orvane {

std::uint64_t LinuxRandomSource::next() {
  const std::scoped_lock lock(mutex_);
  if (position_ == numbers_.size()) refill();
  return numbers_[position_++];
}

void LinuxRandomSource::refill() {
  position_ = 0;
  if (::getentropy(numbers_.data(), sizeof numbers_) == 0) return;
  // A sandbox may forbid getrandom(): std::random_device knows other ways to the same numbers.
  std::random_device device;
  for (auto& number : numbers_) number = (std::uint64_t{device()} << 32) | device();
}

}  // namespace orvane
