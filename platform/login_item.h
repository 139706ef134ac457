#pragma once

#include <optional>
#include <string>

namespace orvane {

/// Starts the program when the user logs in.
/// Threads: main thread only, synchronous. Result: none on success, else the error's description.
class LoginItem {
 public:
  using Error = std::optional<std::string>;

  virtual ~LoginItem() = default;

  /// Makes the program start at login. Doing it twice succeeds.
  [[nodiscard]] virtual Error registerItem() = 0;

  /// Undoes `registerItem`. An item that isn't registered is an error.
  [[nodiscard]] virtual Error unregisterItem() = 0;
};

}  // namespace orvane
