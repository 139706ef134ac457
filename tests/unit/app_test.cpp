#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>
#include <vector>

#include "app/command_line.h"
#include "app/product_settings.h"
#include "app/status_icon.h"

namespace orvane {
namespace {

bool isLight(std::uint32_t pixel) {
  return std::min({pixel >> 24, pixel >> 16 & 0xff, pixel >> 8 & 0xff, pixel & 0xff}) > 200;
}

TEST(StatusIcon, EveryDrawingComesInTheSizesOfPanels) {
  const StatusIconPainter painter;
  for (const auto& icon : {painter.normal({}), painter.boosting({}), painter.percentage(57, {})}) {
    std::set<int> sizes;
    for (const auto& [width, height, pixels] : icon) {
      sizes.insert(width);
      EXPECT_GT(std::count_if(pixels.begin(), pixels.end(), isLight), width * height / 20)
          << "an empty badge of " << width;
    }
    EXPECT_EQ(sizes, (std::set<int>{16, 22, 24, 32, 44, 48}));
  }
  EXPECT_NE(painter.normal({}), painter.boosting({}));
  EXPECT_EQ(painter.percentage(250, {}), painter.percentage(100, {})) << "out of range";
  for (const auto panel : {ColorScheme::light, ColorScheme::dark})
    EXPECT_EQ(isLight(painter.percentage(5, panel)[1].pixels[33]), panel == ColorScheme::dark);
}

// In the rows and columns next to the border there is badge only, so that no digit is cut.
TEST(StatusIcon, EveryNumberDiffersAndStaysInsideItsBadge) {
  const StatusIconPainter painter;
  std::map<int, std::set<std::vector<std::uint32_t>>> pictures;
  for (int percent = 0; percent <= 100; ++percent) {
    for (const auto& [width, height, pixels] : painter.percentage(percent, {})) {
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

TEST(CommandLine, IsOneOptionAtMostOrOneLineAndTheStatus2) {
  using Result = std::variant<StartWish, CommandLineAnswer>;
  const std::string version = "Orvane " + std::string(productVersion) + "\n";
  const std::vector<std::pair<std::vector<std::string>, Result>> cases = {
      {{}, StartWish::plain},
      {{"--hidden"}, StartWish::hidden},
      {{"--show"}, StartWish::showWindow},
      {{"--popover"}, StartWish::showPopover},
      {{"--quit"}, StartWish::quit},
      {{"--version"}, CommandLineAnswer{version, 0}},
      {{"--hidden", "--show"}, CommandLineAnswer{"orvane: one option at most\n", 2}},
      {{""}, CommandLineAnswer{"orvane: unknown option '', see orvane --help\n", 2}},
      {{"--Quit"}, CommandLineAnswer{"orvane: unknown option '--Quit', see orvane --help\n", 2}},
      {{"\x1b[2J\n"}, CommandLineAnswer{"orvane: unknown option '?[2J?', see orvane --help\n", 2}}};
  for (const auto& [arguments, result] : cases) EXPECT_TRUE(parseCommandLine(arguments) == result);
  const auto help = std::get<CommandLineAnswer>(parseCommandLine({"--help"}));
  EXPECT_EQ(help.status, 0);
  EXPECT_NE(help.text.find("\n  --quit      end the running Orvane\n"), std::string::npos);
}

}  // namespace
}  // namespace orvane
