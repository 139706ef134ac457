#pragma once

#include <string>

namespace orvane {

/// `value` with `decimals` digits after a point, as "%.<decimals>f" in the C locale writes it:
/// the user's locale never changes it and nothing is grouped.
[[nodiscard]] std::string fixedText(double value, int decimals);

}  // namespace orvane
