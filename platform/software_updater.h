#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <variant>

namespace orvane {

/// A version newer than the running one.
struct UpdateOffer {
  std::string version;
  std::optional<std::uint64_t> downloadBytes;  ///< none when the feed doesn't say
  std::string notes;                           ///< plain text, may be empty
  std::string downloadPage;                    ///< https address, never empty
};

/// The running version is the newest one.
struct UpdateNotNeeded {
  std::string newestVersion;
};

/// No feed is set for this build: updates come from the system's package manager.
struct UpdateByPackageManager {};

/// The check failed; `message` says why in plain words.
struct UpdateError {
  std::string message;
};

using UpdateResult =
    std::variant<UpdateNotNeeded, UpdateOffer, UpdateByPackageManager, UpdateError>;

/// What is set for this build.
struct UpdateSettings {
  std::string feedUrl;         ///< empty: updates come from the system's package manager
  std::string runningVersion;  ///< as in the feed, for example 1.4.2
};

/// Looks for a newer version, only ever because the user asked.
/// Threads: main thread only; the handler runs on it too, from the event loop.
class SoftwareUpdater {
 public:
  virtual ~SoftwareUpdater() = default;

  /// Starts a check; one that is already running is cancelled first. `handler` runs once, and
  /// never after `cancel` or the end of the updater.
  virtual void checkForUpdates(std::function<void(const UpdateResult&)> handler) = 0;

  /// Ends a running check without a result.
  virtual void cancel() = 0;
};

}  // namespace orvane
