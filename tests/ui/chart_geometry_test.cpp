#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>
#include <limits>

#include "ui/painted/blur.h"
#include "ui/painted/history_chart.h"
#include "ui/painted/share_bar.h"

namespace orvane {
namespace {

struct ChartCase {
  const char* name;
  QList<double> values;
  double minimum, maximum;
  QList<QPointF> points;
};

class ChartPoints : public testing::TestWithParam<ChartCase> {};

TEST_P(ChartPoints, LieEvenlyBetweenTheEdges) {
  EXPECT_EQ(chartPoints(GetParam().values, GetParam().minimum, GetParam().maximum, {330, 100}),
            GetParam().points);
}

const double notANumber = std::numeric_limits<double>::quiet_NaN();

INSTANTIATE_TEST_SUITE_P(
    All, ChartPoints,
    testing::Values(ChartCase{"Empty", {}, 0, 100, {}}, ChartCase{"One", {40}, 0, 100, {{0, 60}}},
                    ChartCase{"TwoSpanThePlot", {100, 0}, 0, 100, {{0, 0}, {330, 100}}},
                    ChartCase{"Three", {0, 50, 25}, 0, 100, {{0, 100}, {165, 50}, {330, 75}}},
                    ChartCase{"OwnScale", {100, 200}, 100, 200, {{0, 100}, {330, 0}}},
                    ChartCase{"Flat", {70, 70}, 70, 70, {{0, 50}, {330, 50}}},
                    ChartCase{"NotANumber", {notANumber, 50}, 0, 100, {{0, 100}, {330, 50}}}),
    [](const auto& chart) { return std::string(chart.param.name); });

TEST(ChartPointsTest, SixtyPointsEndExactlyOnTheTrailingEdge) {
  const auto points = chartPoints(QList<double>(60, 50.0), 0, 100, {330, 100});
  EXPECT_DOUBLE_EQ(points[1].x(), 330.0 / 59);
  EXPECT_DOUBLE_EQ(points.back().x(), 330);
}

TEST(ShareBarTest, FillKeepsItsInsetAndIsNeverNegative) {
  EXPECT_DOUBLE_EQ(barFillWidth(384, 0.5), 188);
  EXPECT_DOUBLE_EQ(barFillWidth(384, 1), 376);
  EXPECT_DOUBLE_EQ(barFillWidth(384, 0), 0);
  EXPECT_DOUBLE_EQ(barFillWidth(7, 0.5), 0);
}

double sumOfAlpha(const QImage& image) {
  double sum = 0;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) sum += qAlpha(image.pixel(x, y));
  }
  return sum;
}

TEST(BlurTest, SpreadsEvenlyWithinItsReachAndLosesNothing) {
  QImage image(160, 160, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  const QRectF square(60, 60, 40, 40);
  paintBlurred(painter, square, 16, 1,
               [&](QPainter& target) { target.fillRect(square, Qt::black); });
  painter.end();

  EXPECT_NEAR(sumOfAlpha(image) / (40.0 * 40 * 255), 1, 0.02);
  EXPECT_NEAR(qAlpha(image.pixel(80, 80)), 251, 6);  // 2.5 deviations to every edge
  EXPECT_NEAR(qAlpha(image.pixel(60, 80)), 128, 8);  // on an edge
  EXPECT_NEAR(qAlpha(image.pixel(50, 80)), qAlpha(image.pixel(80, 109)), 4);
  EXPECT_LE(qAlpha(image.pixel(60 - static_cast<int>(blurReach(16)) - 2, 80)), 1);
}

}  // namespace
}  // namespace orvane
