#include <gtest/gtest.h>

#include <QEasingCurve>
#include <cmath>

#include "ui/style/formats.h"
#include "ui/style/palette.h"
#include "ui/style/spring_curve.h"
#include "ui/style/usage_colors.h"

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

TEST(UsageColors, TurnWarmAboveTheThresholdOnly) {
  const Palette& colors = palette(ColorScheme::light);
  for (const double usage : {0.0, 85.0}) {
    EXPECT_EQ(usageGradientColors(usage, ColorScheme::light)[0], colors.blue);
    EXPECT_EQ(usageRingColors(usage, ColorScheme::light)[0], colors.blue);
  }
  for (const double usage : {85.01, 100.0}) {
    EXPECT_EQ(usageGradientColors(usage, ColorScheme::light)[0], colors.red);
    EXPECT_EQ(usageRingColors(usage, ColorScheme::light)[0], colors.red);
  }
}

TEST(Formats, WriteEveryFigureAsTheViewsShowIt) {
  EXPECT_EQ(gigabytesText(9 * bytesPerGB, 1), QStringLiteral("9.0 GB"));
  EXPECT_EQ(gigabytesText(3.5 * bytesPerGB, 2), QStringLiteral("3.50 GB"));
  EXPECT_EQ(megabytesText(499.6, 0), QStringLiteral("500 MB"));
  EXPECT_EQ(percentText(56.25, 1), QStringLiteral("56.2%"));
  EXPECT_EQ(wholePercentText(56.99), QStringLiteral("56%"));
  EXPECT_EQ(wholePercentText(0.4), QStringLiteral("0%"));
  EXPECT_EQ(fraction(1, 4), 0.25);
  EXPECT_EQ(fraction(1, 0), 0) << "a part of nothing";
}

}  // namespace
}  // namespace orvane
