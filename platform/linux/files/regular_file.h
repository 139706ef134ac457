#pragma once

#include <cstddef>
#include <optional>
#include <string>

namespace orvane {

/// The bytes of the regular file at `path`, symbolic links followed. None at once for a pipe, a
/// socket, a device or a folder, for a file of more than `limit` bytes, and for one that can't be
/// read. Threads: any.
[[nodiscard]] std::optional<std::string> readRegularFile(const std::string& path,
                                                         std::size_t limit);

}  // namespace orvane
