#include "app/popover_geometry.h"

#include <gtest/gtest.h>

namespace orvane {
namespace {

const QRect whole(0, 0, 1280, 800);
constexpr QSize popoverSize(300, 220);

struct Placement {
  const char* name;
  QPoint item;
  QRect available;
  QPoint corner;
};

class PopoverPlacementTest : public testing::TestWithParam<Placement> {};

TEST_P(PopoverPlacementTest, LiesBesideThePanelAndInsideTheScreen) {
  const auto& [name, item, available, corner] = GetParam();
  const QRect rectangle = popoverRectangle(item, popoverSize, {whole, available});
  EXPECT_EQ(rectangle.topLeft().x(), corner.x());
  EXPECT_EQ(rectangle.topLeft().y(), corner.y());
  EXPECT_EQ(rectangle.size(), popoverSize);
  EXPECT_TRUE(available.contains(rectangle));
}

INSTANTIATE_TEST_SUITE_P(
    Panels, PopoverPlacementTest,
    testing::Values(Placement{"top", {640, 12}, {0, 28, 1280, 772}, {490, 34}},
                    Placement{"topRightCorner", {1270, 12}, {0, 28, 1280, 772}, {974, 34}},
                    Placement{"bottom", {640, 790}, {0, 0, 1280, 770}, {490, 544}},
                    Placement{"bottomLeftCorner", {4, 790}, {0, 0, 1280, 770}, {6, 544}},
                    Placement{"left", {10, 400}, {40, 0, 1240, 800}, {46, 290}},
                    Placement{"right", {1275, 700}, {0, 0, 1240, 800}, {934, 574}},
                    // A panel at the left whose item is nearer to the bottom than to its own edge.
                    Placement{"leftPanelNearTheBottom", {30, 790}, {40, 0, 1240, 800}, {46, 574}},
                    // Panels that hide themselves leave no room free.
                    Placement{"hidingPanelAtTheTop", {640, 10}, whole, {490, 26}},
                    Placement{"hidingPanelAtTheBottom", {640, 795}, whole, {490, 559}}),
    [](const auto& placement) { return placement.param.name; });

TEST(PopoverGeometry, ATooLargePopoverBeginsAtTheTop) {
  const ScreenArea small{{0, 0, 320, 200}, {0, 20, 320, 180}};
  EXPECT_EQ(popoverRectangle({300, 10}, {340, 400}, small).topLeft(), QPoint(6, 26));
}

TEST(PopoverGeometry, StaysOnTheScreenOfTheItem) {
  const QList<ScreenArea> screens = {{whole, whole},
                                     {{1280, 0, 1920, 1080}, {1280, 0, 1920, 1040}}};
  const QPoint item(2000, 1060);
  EXPECT_EQ(popoverRectangle(item, popoverSize, screenAt(item, screens)),
            QRect(1850, 814, 300, 220));
  EXPECT_EQ(&screenAt({5000, 5000}, screens), &screens.first());
}

struct Report {
  const char* name;
  std::optional<QPoint> pointer;
  ScreenPoint reported;
  QPoint item;
};

class ItemLocationTest : public testing::TestWithParam<Report> {};

TEST_P(ItemLocationTest, TakesTheMostCredibleSource) {
  const QList<ScreenArea> screens = {{whole, {0, 28, 1280, 772}}};
  const auto& [name, pointer, reported, item] = GetParam();
  EXPECT_EQ(statusItemLocation(pointer, reported, screens), item);
}

INSTANTIATE_TEST_SUITE_P(
    Sources, ItemLocationTest,
    testing::Values(Report{"thePointerOnThePanel", QPoint(1000, 12), {0, 25}, {1000, 12}},
                    Report{"aPointerFarAway", QPoint(600, 400), {1100, 14}, {1100, 14}},
                    Report{"noPointer", std::nullopt, {1100, 14}, {1100, 14}},
                    Report{"aReportRelativeToTheItem", std::nullopt, {9, 11}, {1279, 0}},
                    Report{"aReportOffTheScreen", std::nullopt, {4000, 14}, {1279, 0}},
                    Report{"aReportInTheMiddle", QPoint(600, 400), {640, 400}, {1279, 0}}),
    [](const auto& placement) { return placement.param.name; });

TEST(ItemLocation, ReportsAreInDevicePixels) {
  const QList<ScreenArea> screens = {{whole, {0, 28, 1280, 772}, 2.0}};
  EXPECT_EQ(statusItemLocation(std::nullopt, {2200, 24}, screens), QPoint(1100, 12));
}

TEST(ItemLocation, TheLastResortIsTheCornerAtThePanel) {
  const QList<ScreenArea> screens = {{whole, {0, 0, 1280, 770}}};
  EXPECT_EQ(statusItemLocation(std::nullopt, {}, screens), QPoint(1279, 799));
}

}  // namespace
}  // namespace orvane
