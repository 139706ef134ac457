#include "core/uuid.h"

#include <random>
#include <string_view>

namespace orvane {
namespace {

std::mt19937_64 seededGenerator() {
  std::random_device device;
  std::seed_seq seed{device(), device(), device(), device(),
                     device(), device(), device(), device()};
  return std::mt19937_64(seed);
}

}  // namespace

Uuid Uuid::random() {
  // Asking the system each time takes 20 us on a virtual machine, and a list makes hundreds.
  thread_local std::mt19937_64 generator = seededGenerator();
  Uuid uuid;
  uuid.high_ = (generator() & 0xFFFF'FFFF'FFFF'0FFFULL) | 0x4000ULL;                // version 4
  uuid.low_ = (generator() & 0x3FFF'FFFF'FFFF'FFFFULL) | 0x8000'0000'0000'0000ULL;  // variant 1
  return uuid;
}

std::string Uuid::text() const {
  constexpr std::string_view digits = "0123456789ABCDEF";
  std::string text;
  text.reserve(36);
  for (int nibble = 0; nibble < 32; ++nibble) {
    if (nibble == 8 || nibble == 12 || nibble == 16 || nibble == 20) text += '-';
    const std::uint64_t half = nibble < 16 ? high_ : low_;
    text += digits[(half >> (4 * (15 - nibble % 16))) & 0xF];
  }
  return text;
}

}  // namespace orvane
