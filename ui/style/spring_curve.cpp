#include "ui/style/spring_curve.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace orvane {

namespace {

constexpr double settled = 0.001;
// QEasingCurve writes past its own memory with more segments (seen in Qt 6.4.2). Ten keep the curve
// within three thousandths of its height.
constexpr int segmentCount = 10;
// The formula below divides by sqrt(1 - fraction^2), which is 0 for a critically damped spring.
constexpr double largestFraction = 0.9999;

struct Motion {
  explicit Motion(const Spring& spring)
      : omega(2 * std::numbers::pi / spring.response),
        fraction(std::min(spring.dampingFraction, largestFraction)),
        decay(fraction * omega),
        dampedOmega(omega * std::sqrt(1 - fraction * fraction)) {}

  [[nodiscard]] double displacement(double t) const {
    return std::exp(-decay * t) *
           (std::cos(dampedOmega * t) + decay / dampedOmega * std::sin(dampedOmega * t));
  }
  [[nodiscard]] double velocity(double t) const {
    return omega * omega / dampedOmega * std::exp(-decay * t) * std::sin(dampedOmega * t);
  }

  double omega, fraction, decay, dampedOmega;
};

}  // namespace

double springDisplacement(const Spring& spring, double seconds) {
  return Motion(spring).displacement(seconds);
}

double springSettlingTime(const Spring& spring) {
  const Motion motion(spring);
  const double step = spring.response / 200;
  // The envelope exp(-decay t) / sqrt(1 - fraction^2) bounds the displacement from above.
  double time = std::log(motion.omega / motion.dampedOmega / settled) / motion.decay;
  while (time > step && std::abs(motion.displacement(time - step)) < settled) time -= step;
  return time;
}

QList<QPointF> springCurve(const Spring& spring) {
  const Motion motion(spring);
  const double duration = springSettlingTime(spring);
  const double width = 1.0 / segmentCount;
  // One third of a segment along the tangent: the Hermite form of a cubic.
  const auto tangent = [&](double x) {
    return motion.velocity(x * duration) * duration * width / 3;
  };
  const auto value = [&](double x) { return 1 - motion.displacement(x * duration); };
  QList<QPointF> points;
  points.reserve(qsizetype{3} * segmentCount);
  for (int i = 0; i < segmentCount; ++i) {
    const double from = i * width;
    const bool last = i + 1 == segmentCount;
    const double to = last ? 1.0 : from + width;
    points << QPointF(from + width / 3, value(from) + tangent(from))
           << QPointF(to - width / 3, value(to) - tangent(to))
           << QPointF(to, last ? 1.0 : value(to));
  }
  return points;
}

}  // namespace orvane
