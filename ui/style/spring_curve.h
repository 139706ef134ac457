#pragma once

#include <QList>
#include <QPointF>

namespace orvane {

/// A spring as designers state it: the period of the undamped oscillation in seconds, and the
/// fraction of critical damping.
struct Spring {
  double response = 0.5;
  double dampingFraction = 0.825;
};

/// How far from its end the spring still is at `seconds`: 1 at the start, 0 at rest.
[[nodiscard]] double springDisplacement(const Spring& spring, double seconds);

/// Seconds until the spring stays within a thousandth of its end.
[[nodiscard]] double springSettlingTime(const Spring& spring);

/// The motion over its settling time as a Bezier spline easing: two control points and an end
/// point a segment, from (0, 0) to (1, 1).
[[nodiscard]] QList<QPointF> springCurve(const Spring& spring);

}  // namespace orvane
