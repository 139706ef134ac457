#pragma once

#include <functional>
#include <initializer_list>
#include <string>

namespace orvane {

/// A text in the user's language, from the English one and a note for who translates it.
using Translate = std::function<std::string(const char* english, const char* note)>;

[[nodiscard]] inline std::string inEnglish(const char* english, const char* /*note*/) {
  return english;
}

/// `text` with "%1" as the first of `values` and so on; what a value contains stays as it is.
[[nodiscard]] std::string filled(const std::string& text,
                                 std::initializer_list<std::string> values);

}  // namespace orvane
