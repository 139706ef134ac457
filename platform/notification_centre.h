#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace orvane {

/// Named notifications inside the process.
/// Threads: main thread only; observers run on the main queue.
class NotificationCentre {
 public:
  virtual ~NotificationCentre() = default;

  /// Delivers `name` to every observer of it. Without observers nothing happens.
  virtual void post(std::string_view name) = 0;

  /// Calls `observer` at each post of `name`, for the rest of the centre's life.
  virtual void addObserver(std::string name, std::function<void()> observer) = 0;
};

}  // namespace orvane
