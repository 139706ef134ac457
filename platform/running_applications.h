#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace orvane {

/// How present an application is on the desktop.
enum class ActivationPolicy {
  regular,     ///< a visible desktop entry or an ordinary window
  accessory,   ///< no taskbar entry of its own
  prohibited,  ///< never shown
};

/// An application's icon: a themed icon name ("org.example.Editor") or an absolute file path.
struct ApplicationIcon {
  std::string name;

  bool operator==(const ApplicationIcon&) const = default;
};

/// Identity of one running process that outlives the reuse of its process id. Opaque: only the
/// platform layer that made it can look inside.
class ProcessHandle {
 public:
  virtual ~ProcessHandle() = default;
};

/// One running application, represented by its leading process.
struct RunningApplication {
  std::int32_t processIdentifier = 0;
  std::optional<std::string> localizedName = {};  ///< none when nothing names it
  std::optional<ApplicationIcon> icon = {};       ///< none when it has no icon
  ActivationPolicy activationPolicy = ActivationPolicy::accessory;
  /// What tells it apart from others of the same name: its entry's id or its command. Empty when
  /// there are none.
  std::string distinction = {};
  std::shared_ptr<const ProcessHandle> handle =
      {};  ///< may be null when the process is already gone
};

/// The applications of the user's own session.
/// Threads: main thread only. Never fails: what can't be inspected is left out.
class RunningApplications {
 public:
  virtual ~RunningApplications() = default;

  /// Every running application of this user, in a stable order (oldest leader first).
  [[nodiscard]] virtual std::vector<RunningApplication> runningApplications() = 0;
};

}  // namespace orvane
