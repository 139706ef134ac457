#include "core/number_format.h"

#include <array>
#include <charconv>

namespace orvane {

std::string fixedText(double value, int decimals) {
  // The longest double has 309 digits before its point.
  std::array<char, 352> buffer{};
  const auto [end, error] = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                          std::chars_format::fixed, decimals);
  return error == std::errc{} ? std::string(buffer.data(), end) : std::string();
}

}  // namespace orvane
