#include "app/command_line.h"

#include <gtest/gtest.h>

#include "app/product_settings.h"

namespace orvane {
namespace {

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
