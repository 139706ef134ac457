#include "platform/linux/runtime/linux_random_source.h"

#include <sys/random.h>

#include <cerrno>
#include <random>
#include <span>

namespace orvane {

std::uint64_t LinuxRandomSource::next() {
  const std::scoped_lock lock(mutex_);
  if (position_ == numbers_.size()) refill();
  return numbers_[position_++];
}

void LinuxRandomSource::refill() {
  position_ = 0;
  std::span<std::byte> bytes = std::as_writable_bytes(std::span(numbers_));
  while (!bytes.empty()) {
    const ssize_t count = ::getrandom(bytes.data(), bytes.size(), 0);
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) break;
    bytes = bytes.subspan(static_cast<std::size_t>(count));
  }
  if (bytes.empty()) return;
  // A sandbox may forbid getrandom(): the library knows other ways to the same numbers.
  std::random_device device;
  for (auto& number : numbers_) number = (std::uint64_t{device()} << 32) | device();
}

}  // namespace orvane
