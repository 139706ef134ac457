#pragma once

namespace orvane {

/// The least height or width of at least `points` of which a window's last row or column is painted
/// too. The software renderer cuts the device pixels divided by the ratio down to whole points, so
/// that 291 points at a ratio of 1.75 would keep a black row. `points` where up to 3 more don't
/// help.
[[nodiscard]] int paintedLength(double points, double pixelRatio);

}  // namespace orvane
