#include "app/status_icon.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>
#include <vector>

namespace orvane {
namespace {

bool isLight(std::uint32_t pixel) {
  return (pixel >> 24) > 200 && (pixel >> 16 & 0xff) > 200 && (pixel >> 8 & 0xff) > 200 &&
         (pixel & 0xff) > 200;
}

TEST(StatusIcon, EveryDrawingComesInTheSizesOfPanels) {
  const StatusIconPainter painter;
  for (const auto& icon : {painter.normal(), painter.boosting(), painter.percentage(57)}) {
    std::set<int> sizes;
    for (const auto& [width, height, pixels] : icon) {
      sizes.insert(width);
      EXPECT_GT(std::count_if(pixels.begin(), pixels.end(), isLight), width * height / 20)
          << "an empty badge of " << width;
    }
    EXPECT_EQ(sizes, (std::set<int>{16, 22, 24, 32, 44, 48}));
  }
  EXPECT_NE(painter.normal(), painter.boosting());
  EXPECT_EQ(painter.percentage(250), painter.percentage(100)) << "out of range";
}

// In the rows and columns next to the border there is badge only, so that no digit is cut.
TEST(StatusIcon, EveryNumberDiffersAndStaysInsideItsBadge) {
  const StatusIconPainter painter;
  std::map<int, std::set<std::vector<std::uint32_t>>> pictures;
  for (int percent = 0; percent <= 100; ++percent) {
    for (const auto& [width, height, pixels] : painter.percentage(percent)) {
      pictures[width].insert(pixels);
      const auto last = static_cast<std::size_t>(width - 1);
      for (std::size_t i = 0; i < pixels.size(); ++i) {
        const std::size_t x = i % (last + 1), y = i / (last + 1);
        const bool isEdge = x == 0 || y == 0 || x == last || y == last;
        ASSERT_FALSE(isEdge && isLight(pixels[i])) << percent << " at " << width;
      }
    }
  }
  EXPECT_EQ(pictures[22].size(), 101U);
}

}  // namespace
}  // namespace orvane
