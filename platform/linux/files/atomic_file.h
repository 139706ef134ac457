#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace orvane {

/// Replaces the file at `path` by one with `content`, so that at every moment, also after a crash,
/// either the old or the new one is there whole. None on success, else the system's description of
/// the error.
[[nodiscard]] std::optional<std::string> writeFileAtomically(const std::string& path,
                                                             std::string_view content);

}  // namespace orvane
