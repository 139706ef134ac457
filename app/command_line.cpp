#include "app/command_line.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>

#include "app/product_settings.h"

namespace orvane {
namespace {

struct Option {
  std::string_view name;
  std::string_view explanation;
  std::optional<StartWish> wish;
};

constexpr std::array<Option, 6> options = {{
    {"--hidden", "start with the item in the panel alone", StartWish::hidden},
    {"--show", "show the main window", StartWish::showWindow},
    {"--popover", "show the popover", StartWish::showPopover},
    {"--quit", "end the running Orvane", StartWish::quit},
    {"--help", "print this text and exit", std::nullopt},
    {"--version", "print the version and exit", std::nullopt},
}};

std::string helpText() {
  constexpr std::size_t column = 12;
  std::string text =
      "Usage: orvane [OPTION]\n\n"
      "Memory usage in the panel. Orvane runs once on a desktop: a further start tells the\n"
      "running one what it is for, and ends.\n\n";
  for (const Option& option : options) {
    std::string name(option.name);
    name.resize(column, ' ');
    text += "  " + name + std::string(option.explanation) + "\n";
  }
  return text;
}

/// `argument` for a terminal: without what could be a command to it.
std::string printable(std::string argument) {
  std::replace_if(
      argument.begin(), argument.end(),
      [](unsigned char byte) { return byte < 0x20 || byte == 0x7f; }, '?');
  return argument;
}

}  // namespace

std::optional<std::string> optionOf(StartWish wish) {
  const auto* const option = std::find_if(
      options.begin(), options.end(), [wish](const Option& known) { return known.wish == wish; });
  if (option == options.end()) return std::nullopt;
  return std::string(option->name);
}

std::variant<StartWish, CommandLineAnswer> parseCommandLine(
    const std::vector<std::string>& arguments) {
  if (arguments.empty()) return StartWish::plain;
  if (arguments.size() > 1) return CommandLineAnswer{"orvane: one option at most\n", 2};
  const std::string& argument = arguments.front();
  const auto* const option = std::find_if(
      options.begin(), options.end(), [&](const Option& known) { return known.name == argument; });
  if (option == options.end()) {
    return CommandLineAnswer{
        "orvane: unknown option '" + printable(argument) + "', see orvane --help\n", 2};
  }
  if (option->wish) return *option->wish;
  if (argument == "--help") return CommandLineAnswer{helpText()};
  return CommandLineAnswer{"Orvane " + std::string(productVersion) + "\n"};
}

}  // namespace orvane
