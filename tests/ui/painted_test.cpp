#include <gtest/gtest.h>

#include <QQuickWindow>
#include <QTest>
#include <limits>
#include <memory>

#include "ui/painted/gradient_arc.h"
#include "ui/painted/history_chart.h"
#include "ui/painted/rectangle_shadow.h"
#include "ui/painted/share_bar.h"
#include "ui/painted/smooth_rectangle.h"

namespace orvane {
namespace {

TEST(ChartPoints, LieEvenlyBetweenTheEdges) {
  const double notANumber = std::numeric_limits<double>::quiet_NaN();
  const struct {
    QList<double> values;
    double minimum, maximum;
    QList<QPointF> points;
  } cases[] = {{{}, 0, 100, {}},
               {{40}, 0, 100, {{0, 60}}},
               {{0, 50, 25}, 0, 100, {{0, 100}, {165, 50}, {330, 75}}},
               {{100, 200}, 100, 200, {{0, 100}, {330, 0}}},
               {{70, 70}, 70, 70, {{0, 50}, {330, 50}}},
               {{notANumber, 50}, 0, 100, {{0, 100}, {330, 50}}}};
  for (const auto& c : cases) {
    EXPECT_EQ(chartPoints(c.values, c.minimum, c.maximum, {330, 100}), c.points);
  }
  EXPECT_DOUBLE_EQ(chartPoints(QList<double>(60, 50.0), 0, 100, {330, 100}).back().x(), 330);
}

class PaintedTest : public testing::Test {
 protected:
  PaintedTest() {
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    window_ = std::make_unique<QQuickWindow>();
    window_->setColor(Qt::white);
    window_->resize(80, 80);
  }
  void add(QQuickItem& item, QRectF place) {
    item.setParentItem(window_->contentItem());
    item.setPosition(place.topLeft());
    item.setSize(place.size());
  }
  static void set(QQuickItem& item,
                  std::initializer_list<std::pair<const char*, QVariant>> inputs) {
    for (const auto& [name, value] : inputs) EXPECT_TRUE(item.setProperty(name, value)) << name;
  }
  QImage picture() {
    window_->show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(window_.get()));
    return window_->grabWindow();
  }

  std::unique_ptr<QQuickWindow> window_;
};

TEST_F(PaintedTest, ArcRunsClockwiseAndIsPaintedOnlyWhenAnInputChanges) {
  GradientArc arc;
  const auto red = QVariant::fromValue(QList<QColor>{Qt::red});
  set(arc, {{"colors", red}, {"lineWidth", 6}, {"to", 0.25}, {"startRotation", -90}});
  add(arc, {15, 15, 50, 50});
  const QImage image = picture();
  EXPECT_EQ(image.pixelColor(57, 22), QColor(Qt::red)) << "top right quarter";
  EXPECT_EQ(image.pixelColor(42, 13), QColor(Qt::red)) << "outer half of the line";
  EXPECT_EQ(image.pixelColor(42, 17), QColor(Qt::red)) << "inner half of the line";
  EXPECT_EQ(image.pixelColor(22, 22), QColor(Qt::white)) << "top left quarter";
  EXPECT_EQ(image.pixelColor(57, 57), QColor(Qt::white)) << "bottom right quarter";
  arc.setRotation(90);
  arc.setX(20);
  set(arc, {{"colors", red}});
  (void)picture();
  EXPECT_EQ(arc.paintCount(), 1) << "turned, moved and set to what it was";
  arc.setTo(0);
  arc.setRotation(0);
  EXPECT_EQ(picture().pixelColor(62, 22), QColor(Qt::white)) << "nothing to draw";
}

TEST_F(PaintedTest, AShadowIsSoftAroundItsRectangleAndAbsentInside) {
  RectangleShadow shadow;
  set(shadow, {{"radius", 12}, {"blurRadius", 8}, {"color", QColor(Qt::black)}});
  add(shadow, {20, 20, 40, 40});
  const QImage image = picture();
  EXPECT_EQ(image.pixelColor(40, 40), QColor(Qt::white)) << "cut out";
  EXPECT_LT(image.pixelColor(18, 40).red(), 180);
  EXPECT_GT(image.pixelColor(12, 40).red(), image.pixelColor(16, 40).red());
  EXPECT_LT(image.pixelColor(12, 40).red(), 255) << "cut off";
  EXPECT_LT(image.pixelColor(21, 21).red(), 250) << "the corner is round, its shadow seen";
}

TEST_F(PaintedTest, StraightEdgesLieOnDevicePixels) {
  SmoothRectangle card;
  ShareBar bar;
  set(card, {{"radius", 2}, {"color", QColor(Qt::red)}});
  set(bar, {{"share", 0.5}, {"fillColor", QColor(Qt::red)}, {"trackColor", QColor(Qt::red)}});
  for (PaintedItem* item : std::initializer_list<PaintedItem*>{&card, &bar}) {
    add(*item, {10.4, 10.4, 40.3, 6.2});
    const QImage image = picture();
    QList<QColor> column;
    for (int y = 0; y < image.height(); ++y) {
      const QColor color = image.pixelColor(24, y);
      if (!column.contains(color)) column << color;
    }
    EXPECT_EQ(column, QList<QColor>({Qt::white, Qt::red})) << item->metaObject()->className();
    item->setParentItem(nullptr);
  }
}

}  // namespace
}  // namespace orvane
