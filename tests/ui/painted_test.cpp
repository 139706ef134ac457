#include <gtest/gtest.h>

#include <QDir>
#include <QQuickWindow>
#include <QTest>
#include <memory>

#include "ui/painted/gradient_arc.h"
#include "ui/painted/smooth_rectangle.h"
#include "ui/painted/symbol.h"

namespace orvane {
namespace {

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
  QImage picture() {
    window_->show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(window_.get()));
    return window_->grabWindow();
  }

  std::unique_ptr<QQuickWindow> window_;
};

TEST_F(PaintedTest, PaintsOnlyWhenAnInputChanges) {
  GradientArc arc;
  arc.setColors({Qt::red});
  arc.setLineWidth(6);
  add(arc, {15, 15, 50, 50});
  (void)picture();
  EXPECT_EQ(arc.paintCount(), 1);
  arc.setRotation(90);
  arc.setX(20);
  arc.setColors({Qt::red});
  (void)picture();
  EXPECT_EQ(arc.paintCount(), 1) << "turned, moved and set to what it was";
  arc.setTo(0.5);
  (void)picture();
  EXPECT_EQ(arc.paintCount(), 2);
}

TEST_F(PaintedTest, ArcRunsClockwiseFromItsStartOnTheOutline) {
  GradientArc arc;
  arc.setColors({Qt::red});
  arc.setLineWidth(6);
  arc.setTo(0.25);
  arc.setStartRotation(-90);
  add(arc, {15, 15, 50, 50});
  const QImage image = picture();
  EXPECT_EQ(image.pixelColor(57, 22), QColor(Qt::red)) << "top right quarter";
  EXPECT_EQ(image.pixelColor(42, 13), QColor(Qt::red)) << "outer half of the line";
  EXPECT_EQ(image.pixelColor(42, 17), QColor(Qt::red)) << "inner half of the line";
  EXPECT_EQ(image.pixelColor(22, 22), QColor(Qt::white)) << "top left quarter";
  EXPECT_EQ(image.pixelColor(57, 57), QColor(Qt::white)) << "bottom right quarter";
  arc.setTo(0);
  const QImage empty = picture();
  EXPECT_EQ(empty.pixelColor(57, 22), QColor(Qt::white)) << "nothing to draw";
}

TEST_F(PaintedTest, GradientRunsBetweenItsUnitPoints) {
  SmoothRectangle rectangle;
  rectangle.setGradientColors({Qt::red, Qt::blue});
  rectangle.setRadius(10);
  add(rectangle, {10, 10, 60, 60});
  const QImage image = picture();
  EXPECT_GT(image.pixelColor(12, 40).red(), 230);
  EXPECT_GT(image.pixelColor(67, 40).blue(), 230);
  EXPECT_EQ(image.pixelColor(10, 10), QColor(Qt::white)) << "corner";
}

TEST_F(PaintedTest, APictureOfLittleDetailReachesTheEdges) {
  SmoothRectangle rectangle;
  rectangle.setColor(Qt::red);
  rectangle.setDetail(1.0 / 8);
  add(rectangle, {10, 10, 60, 58});
  const QImage image = picture();
  EXPECT_EQ(image.pixelColor(69, 67), QColor(Qt::red));
  EXPECT_EQ(image.pixelColor(70, 68), QColor(Qt::white));
}

TEST_F(PaintedTest, EverySymbolDrawsInItsColour) {
  for (const char* name :
       {"bolt.fill", "gearshape.fill", "chevron.up.circle.fill", "chevron.down.circle.fill",
        "chevron.up", "chevron.down", "chevron.right", "info.circle.fill", "arrow.up.arrow.down",
        "arrow.clockwise", "xmark.circle.fill", "app.fill", "square.fill", "number",
        "arrow.triangle.branch", "arrow.up.forward", "checkmark"}) {
    Symbol symbol;
    symbol.setName(QLatin1String(name));
    symbol.setColor(Qt::red);
    add(symbol, {10, 10, 60, 60});
    const QImage image = picture();
    int inked = 0;
    for (int y = 0; y < 80; ++y) {
      for (int x = 0; x < 80; ++x) {
        const QColor pixel = image.pixelColor(x, y);
        EXPECT_EQ(pixel.red(), 255) << name;
        if (pixel.green() == 0) ++inked;
      }
    }
    EXPECT_GT(inked, 200) << name;
    EXPECT_LT(inked, 3300) << name;
  }
  EXPECT_TRUE(Symbol::drawing(QStringLiteral("no.such.symbol")).isEmpty());
}

}  // namespace
}  // namespace orvane
