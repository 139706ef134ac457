#include "ui/painted/smooth_path.h"

#include <QTransform>
#include <algorithm>
#include <cmath>
#include <numbers>

namespace orvane {

namespace {

// How far beyond the radius a corner begins, as a share of the radius.
constexpr double smoothing = 0.6;

/// One corner at the origin, from the point `reach` down the y axis to the one along the x axis:
/// a transition of rising curvature, an arc and the same transition back.
struct Corner {
  Corner(double radius, double limit) {
    const double share = std::clamp(limit / radius - 1, 0.0, smoothing);
    const double angle = share * std::numbers::pi / 4;
    reach = (1 + share) * radius;
    arcStart = {radius * (1 - std::sin(angle)), radius * (1 - std::cos(angle))};
    if (angle < 1e-6) {
      far = near = {radius, 0};
    } else {
      const double tangent = radius * std::tan(angle / 2);
      near = {arcStart.x() + tangent * std::cos(angle), 0};
      far = {near.x() + 1.5 * tangent * tangent / (radius * std::sin(angle)), 0};
    }
    arcRect = {0, 0, 2 * radius, 2 * radius};
    sweep = 90 - 2 * angle * 180 / std::numbers::pi;
  }

  void appendTo(QPainterPath& path, const QTransform& place) const {
    const auto mirrored = [&](QPointF p) { return place.map(QPointF(p.y(), p.x())); };
    const auto direct = [&](QPointF p) { return place.map(p); };
    path.lineTo(mirrored({reach, 0}));
    path.cubicTo(mirrored(far), mirrored(near), mirrored(arcStart));
    // A quarter turn of the place keeps the arc an arc: one cubic is exact to 0.03 %.
    const double sweepRadians = sweep * std::numbers::pi / 180;
    const double handle = 4.0 / 3 * std::tan(sweepRadians / 4) * arcRect.width() / 2;
    const double start = (90 - sweep) / 2 * std::numbers::pi / 180;
    const QPointF direction(std::sin(start), -std::cos(start));
    const QPointF first(arcStart.y(), arcStart.x());
    const QPointF last = arcStart;
    path.cubicTo(direct(first + handle * direction),
                 direct(last + handle * QPointF(direction.y(), direction.x())), direct(last));
    path.cubicTo(direct(near), direct(far), direct({reach, 0}));
  }

  double reach = 0;
  QPointF far, near, arcStart;
  QRectF arcRect;
  double sweep = 90;
};

}  // namespace

QPainterPath smoothRectanglePath(const QRectF& rect, double radius) {
  QPainterPath path;
  const double limit = std::min(rect.width(), rect.height()) / 2;
  const double cut = std::min(radius, limit);
  if (cut <= 0) {
    path.addRect(rect);
    return path;
  }
  const Corner corner(cut, limit);
  path.moveTo(rect.left(), rect.top() + corner.reach);
  const QPointF corners[] = {rect.topLeft(), rect.topRight(), rect.bottomRight(),
                             rect.bottomLeft()};
  for (int i = 0; i < 4; ++i) {
    const QPointF at = corners[i];
    corner.appendTo(path, QTransform().translate(at.x(), at.y()).rotate(90.0 * i));
  }
  path.closeSubpath();
  return path;
}

}  // namespace orvane
