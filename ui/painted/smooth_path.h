#pragma once

#include <QPainterPath>
#include <QRectF>

namespace orvane {

/// A rounded rectangle whose corners have continuous curvature. Radii that don't fit are cut to
/// half of the shorter side, where the ends become plain half circles.
[[nodiscard]] QPainterPath smoothRectanglePath(const QRectF& rect, double radius);

}  // namespace orvane
