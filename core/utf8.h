#pragma once

#include <string>
#include <string_view>

namespace orvane {

/// `bytes` up to the first NUL as valid UTF-8; each invalid sequence becomes U+FFFD.
[[nodiscard]] std::string decodeUtf8(std::string_view bytes);

}  // namespace orvane
