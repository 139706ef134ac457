#pragma once

#include <functional>
#include <optional>

namespace orvane {

enum class ColorScheme { light, dark };

/// The desktop's preference for light or dark colours. Threads: main thread only. Nothing blocks:
/// the answer may come later, through the handler.
class Appearance {
 public:
  virtual ~Appearance() = default;

  /// What the desktop asks for; none when it has no preference or hasn't answered.
  [[nodiscard]] virtual std::optional<ColorScheme> colorScheme() const = 0;

  /// Called after each change; replaces the handler set before.
  virtual void setChanged(std::function<void()> handler) = 0;
};

}  // namespace orvane
