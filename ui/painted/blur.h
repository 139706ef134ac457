#pragma once

#include <QRectF>
#include <functional>

class QBrush;
class QPainter;

namespace orvane {

/// How far, in points, a blur of `radius` points reaches beyond what it blurs.
[[nodiscard]] constexpr double blurReach(double radius) {
  return 1.5 * radius;
}

/// Paints what `shape` covers, which keeps within `bounds`, with a Gaussian blur whose standard
/// deviation is half of `radius` points. Of the shape's colours only the opacity counts: `fill`
/// colours it.
void paintBlurred(QPainter& painter, const QRectF& bounds, double radius, const QBrush& fill,
                  const std::function<void(QPainter&)>& shape);

}  // namespace orvane
