#include "ui/windows/window_geometry.h"

#include <gtest/gtest.h>

namespace orvane {
namespace {

const QRect whole(0, 0, 1280, 800);
constexpr QSize popoverSize(300, 220);

TEST(PopoverGeometry, LiesBesideThePanelAndInsideTheScreen) {
  const struct {
    const char* panel;
    QPoint item;
    QRect available;
    QPoint corner;
  } cases[] = {{"top", {640, 12}, {0, 28, 1280, 772}, {490, 34}},
               {"top right corner", {1270, 12}, {0, 28, 1280, 772}, {974, 34}},
               {"bottom left corner", {4, 790}, {0, 0, 1280, 770}, {6, 544}},
               {"left", {10, 400}, {40, 0, 1240, 800}, {46, 290}},
               {"right", {1275, 700}, {0, 0, 1240, 800}, {934, 574}},
               // Its item is nearer to the bottom than to the panel's own edge.
               {"left, near the bottom", {30, 790}, {40, 0, 1240, 800}, {46, 574}},
               // Panels that hide themselves leave no room free.
               {"hiding, at the top", {640, 10}, whole, {490, 26}},
               {"hiding, at the bottom", {640, 795}, whole, {490, 559}}};
  for (const auto& [panel, item, available, corner] : cases) {
    const QRect rectangle = popoverRectangle(item, popoverSize, {whole, available});
    EXPECT_EQ(rectangle, QRect(corner, popoverSize)) << panel;
    EXPECT_TRUE(available.contains(rectangle)) << panel;
  }
  const ScreenArea small{{0, 0, 320, 200}, {0, 20, 320, 180}};
  EXPECT_EQ(popoverRectangle({300, 10}, {340, 400}, small).topLeft(), QPoint(6, 26)) << "too large";
  const QList<ScreenArea> screens = {{whole, whole},
                                     {{1280, 0, 1920, 1080}, {1280, 0, 1920, 1040}}};
  const QPoint item(2000, 1060);
  EXPECT_EQ(popoverRectangle(item, popoverSize, screenAt(item, screens)),
            QRect(1850, 814, 300, 220));
  EXPECT_EQ(&screenAt({5000, 5000}, screens), &screens.first());
}

TEST(WindowPosition, IsTheLastOneWhileItsTitleBarCanBeReached) {
  const QList<ScreenArea> screens = {{whole, {0, 28, 1280, 772}}};
  const QSize size(440, 510);
  for (const QPoint last : {QPoint(700, 100), QPoint(-380, 30), QPoint(1220, 788)})
    EXPECT_EQ(windowPosition(last, size, screens), last);
  for (const QPoint gone : {QPoint(1400, 100), QPoint(-400, 30), QPoint(100, -600)})
    EXPECT_EQ(windowPosition(gone, size, screens), QPoint(419, 158));
  const QList<ScreenArea> low = {{{0, 0, 640, 400}, {0, 28, 640, 372}}};
  EXPECT_EQ(windowPosition({1400, 100}, size, low), QPoint(99, 28)) << "its title bar comes first";
}

TEST(ItemLocation, TakesTheMostCredibleSource) {
  const QList<ScreenArea> screens = {{whole, {0, 28, 1280, 772}}};
  const struct {
    const char* what;
    std::optional<QPoint> pointer;
    ScreenPoint reported;
    QPoint item;
  } cases[] = {{"the pointer on the panel", QPoint(1000, 12), {0, 25}, {1000, 12}},
               {"a pointer far away", QPoint(600, 400), {1100, 14}, {1100, 14}},
               {"no pointer", std::nullopt, {1100, 14}, {1100, 14}},
               {"a report relative to the item", std::nullopt, {9, 11}, {1279, 0}},
               {"a report off the screen", std::nullopt, {4000, 14}, {1279, 0}},
               {"a report in the middle", QPoint(600, 400), {640, 400}, {1279, 0}}};
  for (const auto& [what, pointer, reported, item] : cases) {
    EXPECT_EQ(statusItemLocation(pointer, reported, screens), item) << what;
  }
  const QList<ScreenArea> dense = {{whole, {0, 28, 1280, 772}, 2.0}};
  EXPECT_EQ(statusItemLocation(std::nullopt, {2200, 24}, dense), QPoint(1100, 12))
      << "reports are in device pixels";
  const QList<ScreenArea> panelBelow = {{whole, {0, 0, 1280, 770}}};
  EXPECT_EQ(statusItemLocation(std::nullopt, {}, panelBelow), QPoint(1279, 799))
      << "the last resort is the corner at the panel";
}

}  // namespace
}  // namespace orvane
