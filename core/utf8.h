#pragma once

#include <string>
#include <string_view>

namespace orvane {

/// `bytes` up to the first NUL as valid UTF-8; each invalid sequence becomes U+FFFD.
[[nodiscard]] std::string decodeUtf8(std::string_view bytes);

/// `bytes` as one line of valid UTF-8 for showing as a name: each invalid sequence becomes U+FFFD,
/// each run of control characters and line breaks one space, and marks that change the direction
/// of the text around them are dropped, as is white space at both ends. At most 256 code points,
/// the last one an ellipsis where the text was cut. Empty when nothing of it would show.
[[nodiscard]] std::string singleLineText(std::string_view bytes);

}  // namespace orvane
