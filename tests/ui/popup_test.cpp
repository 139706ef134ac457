#include <gtest/gtest.h>

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

}  // namespace
}  // namespace orvane
