#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace orvane {

/// The mailto address that opens a support request to `address` in the user's mail program, with
/// subject and body filled in. None when `address` is no plain mail address (name@domain).
[[nodiscard]] std::optional<std::string> supportMailUrl(std::string_view address);

}  // namespace orvane
