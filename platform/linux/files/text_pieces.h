#pragma once

#include <string_view>
#include <vector>

namespace orvane {

/// The pieces of `text` between separators, in order, without the empty ones.
[[nodiscard]] std::vector<std::string_view> split(std::string_view text, char separator);

}  // namespace orvane
