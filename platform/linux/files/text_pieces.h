#pragma once

#include <optional>
#include <string_view>
#include <vector>

namespace orvane {

/// The pieces of `text` between separators, in order, without the empty ones.
[[nodiscard]] std::vector<std::string_view> split(std::string_view text, char separator);

/// The byte that two hexadecimal digits stand for; none for other characters.
[[nodiscard]] std::optional<char> hexByte(char high, char low);

}  // namespace orvane
