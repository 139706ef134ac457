#include "core/uuid.h"

#include <random>
#include <string_view>

namespace orvane {

Uuid Uuid::random() {
  std::random_device device;
  std::uniform_int_distribution<std::uint64_t> any;
  Uuid uuid;
  uuid.high_ = (any(device) & 0xFFFF'FFFF'FFFF'0FFFULL) | 0x4000ULL;                // version 4
  uuid.low_ = (any(device) & 0x3FFF'FFFF'FFFF'FFFFULL) | 0x8000'0000'0000'0000ULL;  // variant 1
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
