#pragma once

#include <string>

namespace orvane {

/// Loads the texts in the first of the user's languages that has some; nothing is loaded for
/// English. Called once, after the application is made.
void loadTranslation();

/// A text of the program itself in the user's language; see Translate.
[[nodiscard]] std::string translated(const char* english, const char* note);

}  // namespace orvane
