#pragma once

#include <QRectF>
#include <functional>

class QPainter;

namespace orvane {

/// How far, in points, a blur of `radius` points reaches beyond what it blurs.
[[nodiscard]] constexpr double blurReach(double radius) {
  return 1.5 * radius;
}

/// Paints `drawing`, which keeps within `bounds`, with a Gaussian blur whose standard deviation is
/// half of `radius` points.
void paintBlurred(QPainter& painter, const QRectF& bounds, double radius,
                  const std::function<void(QPainter&)>& drawing);

}  // namespace orvane
