#include "platform/linux/files/text_pieces.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace orvane {

std::vector<std::string_view> split(std::string_view text, char separator) {
  std::vector<std::string_view> pieces;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find(separator), text.size());
    if (end > 0) pieces.push_back(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return pieces;
}

std::optional<char> hexByte(char high, char low) {
  const std::array<char, 2> digits = {high, low};
  unsigned byte = 0;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), byte, 16);
  if (error != std::errc() || end != digits.data() + digits.size()) return std::nullopt;
  return static_cast<char>(byte);
}

}  // namespace orvane
