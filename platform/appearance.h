#pragma once

#include <functional>
#include <optional>

namespace orvane {

enum class ColorScheme { light, dark };

/// How the desktop wants programs to look.
struct AppearanceSettings {
  std::optional<ColorScheme> colorScheme;  ///< none: no preference, or no answer yet
  bool highContrast = false;
  bool reducedMotion = false;
  double textScale = 1;  ///< of the desktop's font

  bool operator==(const AppearanceSettings&) const = default;
};

/// The desktop's preferences for how programs look. Threads: main thread only. Nothing blocks:
/// the answer may come later, through the handler.
class Appearance {
 public:
  virtual ~Appearance() = default;

  /// What the desktop asks for; the defaults when it has no preference or hasn't answered.
  [[nodiscard]] virtual const AppearanceSettings& settings() const = 0;

  /// Called after each change; replaces the handler set before.
  virtual void setChanged(std::function<void()> handler) = 0;
};

}  // namespace orvane
