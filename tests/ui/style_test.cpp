#include <gtest/gtest.h>

#include <QEasingCurve>
#include <cmath>

#include "ui/style/spring_curve.h"

namespace orvane {
namespace {

QEasingCurve easingOf(const Spring& spring) {
  QEasingCurve easing(QEasingCurve::BezierSpline);
  const QList<QPointF> points = springCurve(spring);
  for (int i = 0; i + 2 < points.size(); i += 3) {
    easing.addCubicBezierSegment(points[i], points[i + 1], points[i + 2]);
  }
  return easing;
}

TEST(Spring, EasingFollowsTheFormulaAndSettles) {
  for (const Spring& spring : {Spring{0.3, 0.825}, {0.5, 0.825}, {0.6, 0.7}, {0.4, 1.0}}) {
    SCOPED_TRACE(testing::Message() << spring.response << ", " << spring.dampingFraction);
    const QEasingCurve easing = easingOf(spring);
    const double duration = springSettlingTime(spring);
    for (double share = 0.02; share < 1; share += 0.02) {
      EXPECT_NEAR(easing.valueForProgress(share), 1 - springDisplacement(spring, share * duration),
                  0.004)
          << "at " << share;
    }
    for (double time = duration; time < 3 * duration; time += 0.01) {
      EXPECT_LT(std::abs(springDisplacement(spring, time)), 0.001);
    }
    EXPECT_GT(duration, spring.response / 2);
  }
  EXPECT_GT(1 - springDisplacement({0.6, 0.7}, 0.42), 1.02) << "a soft spring swings over its end";
}

}  // namespace
}  // namespace orvane
