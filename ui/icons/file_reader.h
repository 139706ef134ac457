#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>

namespace orvane {

/// Gives the bytes of a regular file; none, and at once, for anything else, for a file of more than
/// `limit` bytes and for one that can't be read.
using FileReader =
    std::function<std::optional<std::string>(const std::string& path, std::size_t limit)>;

}  // namespace orvane
