#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace orvane {

/// The user's preferences, kept across launches and written through at each change.
/// Threads: main thread only. Unreadable or corrupt entries read as none; a failed write is
/// silent and leaves every other key as it was.
class Preferences {
 public:
  virtual ~Preferences() = default;

  [[nodiscard]] virtual std::optional<std::string> text(std::string_view key) const = 0;
  virtual void setText(std::string_view key, std::string_view value) = 0;

  [[nodiscard]] virtual std::optional<bool> boolean(std::string_view key) const = 0;
  virtual void setBoolean(std::string_view key, bool value) = 0;
};

}  // namespace orvane
