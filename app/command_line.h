#pragma once

#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace orvane {

/// What a start of the program is for. Where one runs already, it is told so; the letters are the
/// words between the two.
enum class StartWish : char {
  plain = 's',
  hidden = 'h',
  showWindow = 'w',
  showPopover = 'p',
  quit = 'q'
};

/// A command line that is answered with a text and an exit status, and nothing is started: 0 on
/// standard output, anything else on standard error.
struct CommandLineAnswer {
  std::string text;
  int status = 0;

  bool operator==(const CommandLineAnswer&) const = default;
};

/// The option that stands for a wish; none for a plain start.
[[nodiscard]] std::optional<std::string> optionOf(StartWish wish);

/// What the arguments after the program's name ask for: one option at most.
[[nodiscard]] std::variant<StartWish, CommandLineAnswer> parseCommandLine(
    const std::vector<std::string>& arguments);

}  // namespace orvane
