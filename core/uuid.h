#pragma once

#include <cstdint>
#include <functional>
#include <string>

namespace orvane {

/// A random (version 4) identifier.
class Uuid {
 public:
  /// A new identifier, from a generator seeded with the system's random numbers.
  [[nodiscard]] static Uuid random();

  /// The usual text form, in upper case: "8-4-4-4-12" hexadecimal digits.
  [[nodiscard]] std::string text() const;

  bool operator==(const Uuid&) const = default;

 private:
  friend struct std::hash<Uuid>;
  std::uint64_t high_ = 0;
  std::uint64_t low_ = 0;
};

}  // namespace orvane

template <>
struct std::hash<orvane::Uuid> {
  std::size_t operator()(const orvane::Uuid& uuid) const noexcept {
    return std::hash<std::uint64_t>{}(uuid.high_ ^ uuid.low_);
  }
};
