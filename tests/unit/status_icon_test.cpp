#include "app/status_icon.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

namespace orvane {
namespace {

const IconPixmap& ofWidth(const std::vector<IconPixmap>& icon, int width) {
  return *std::find_if(icon.begin(), icon.end(),
                       [width](const IconPixmap& picture) { return picture.width == width; });
}

bool isLight(std::uint32_t pixel) {
  return (pixel >> 24) > 200 && (pixel >> 16 & 0xff) > 200 && (pixel >> 8 & 0xff) > 200 &&
         (pixel & 0xff) > 200;
}

TEST(StatusIcon, EveryDrawingComesInTheSizesOfPanels) {
  const StatusIconPainter painter;
  for (const auto& icon : {painter.normal(), painter.boosting(), painter.percentage(57)}) {
    std::set<int> sizes;
    for (const IconPixmap& picture : icon) {
      sizes.insert(picture.width);
      EXPECT_GT(std::count_if(picture.pixels.begin(), picture.pixels.end(), isLight),
                picture.width * picture.height / 20)
          << "an empty badge of " << picture.width;
    }
    EXPECT_EQ(sizes, (std::set<int>{16, 22, 24, 32, 44, 48}));
  }
  EXPECT_NE(painter.normal(), painter.boosting());
  EXPECT_EQ(painter.percentage(250), painter.percentage(100)) << "out of range";
}

// In the rows and columns next to the border there is badge only, so that no digit is cut.
TEST(StatusIcon, EveryNumberDiffersAndStaysInsideItsBadge) {
  const StatusIconPainter painter;
  std::set<std::vector<std::uint32_t>> pictures;
  for (int percent = 0; percent <= 100; ++percent) {
    const auto icon = painter.percentage(percent);
    pictures.insert(ofWidth(icon, 22).pixels);
    for (const IconPixmap& picture : icon) {
      for (int i = 0; i < picture.width; ++i) {
        const auto at = [&](int x, int y) {
          return picture.pixels[static_cast<std::size_t>(y * picture.width + x)];
        };
        const int last = picture.width - 1;
        EXPECT_FALSE(isLight(at(0, i)) || isLight(at(last, i)) || isLight(at(i, 0)) ||
                     isLight(at(i, last)))
            << percent << " at " << picture.width;
      }
    }
  }
  EXPECT_EQ(pictures.size(), 101U);
}

}  // namespace
}  // namespace orvane
