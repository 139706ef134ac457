#include <gtest/gtest.h>

#include <QPainterPath>

#include "ui/painted/smooth_path.h"
#include "ui/popup/popup_placement.h"

namespace orvane {
namespace {

constexpr QRect screen{0, 0, 1000, 800};

TEST(PopupPlacement, StaysBesideItsAnchorAndInsideTheScreen) {
  struct Case {
    const char* what;
    QRect anchor;
    QSize size;
    PopupEdge edge;
    QPoint expected;
  };
  const Case cases[] = {
      {"below", {100, 100, 40, 20}, {200, 150}, PopupEdge::below, {100, 120}},
      {"no room below", {100, 700, 40, 20}, {200, 150}, PopupEdge::below, {100, 550}},
      {"at the right edge", {950, 100, 40, 20}, {200, 150}, PopupEdge::below, {800, 120}},
      {"left of the screen", {-30, 100, 40, 20}, {200, 150}, PopupEdge::below, {0, 120}},
      {"higher than the screen", {100, 300, 40, 20}, {200, 900}, PopupEdge::below, {100, 0}},
      {"beside", {100, 300, 40, 20}, {200, 100}, PopupEdge::trailing, {140, 260}},
      {"no room beside", {900, 300, 40, 20}, {200, 100}, PopupEdge::trailing, {700, 260}},
      {"beside at the top", {100, 0, 40, 20}, {200, 100}, PopupEdge::trailing, {140, 0}},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(placePopup(c.anchor, c.size, screen, c.edge), QRect(c.expected, c.size)) << c.what;
  }
  EXPECT_EQ(placePopup({1500, 100, 40, 20}, {200, 150}, {1000, 0, 1000, 800}, PopupEdge::below),
            QRect(1500, 120, 200, 150))
      << "on the second screen";
}

TEST(MenuChoice, SkipsWhatCantBeChosenAndGoesRound) {
  const QList<bool> menu{true, false, true, false, true};
  EXPECT_EQ(nextChoice(menu, -1, 1), 0);
  EXPECT_EQ(nextChoice(menu, -1, -1), 4);
  EXPECT_EQ(nextChoice(menu, 0, 1), 2);
  EXPECT_EQ(nextChoice(menu, 4, 1), 0);
  EXPECT_EQ(nextChoice(menu, 0, -1), 4);
  EXPECT_EQ(nextChoice({false, false}, -1, 1), -1);
  EXPECT_EQ(nextChoice({}, -1, 1), -1);
}

TEST(SmoothRectangle, CornersAreRoundAndSidesReachTheEdge) {
  const QRectF rect(10, 20, 100, 60);
  for (const double radius : {3.0, 12.0, 30.0, 500.0}) {
    const QPainterPath path = smoothRectanglePath(rect, radius);
    SCOPED_TRACE(radius);
    EXPECT_NEAR(path.boundingRect().left(), rect.left(), 1e-6);
    EXPECT_NEAR(path.boundingRect().right(), rect.right(), 1e-6);
    EXPECT_NEAR(path.boundingRect().bottom(), rect.bottom(), 1e-6);
    for (const QPointF corner :
         {rect.topLeft(), rect.topRight(), rect.bottomLeft(), rect.bottomRight()}) {
      const QPointF inward = (rect.center() - corner) / 50;
      EXPECT_FALSE(path.contains(corner + 0.05 * inward));
    }
    EXPECT_TRUE(path.contains(rect.center()));
  }
  // A circle's corner of radius 20 leaves out 86 square points in all, a smooth one a little more.
  double area = 0;
  const QPolygonF outline = smoothRectanglePath(rect, 20).toFillPolygon();
  for (int i = 0; i + 1 < outline.size(); ++i) {
    area += (outline[i].x() * outline[i + 1].y() - outline[i + 1].x() * outline[i].y()) / 2;
  }
  const double left = 6000 - std::abs(area);
  EXPECT_GT(left, 335);
  EXPECT_LT(left, 480);
  EXPECT_EQ(smoothRectanglePath(rect, 0).boundingRect(), rect);
}

}  // namespace
}  // namespace orvane
