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

/// One running process, whoever gets its process id next.
/// Threads: main thread only.
class ProcessHandle {
 public:
  virtual ~ProcessHandle() = default;

  /// Ends the process at once (SIGKILL). Silent when it is gone already.
  virtual void kill() const = 0;
};

/// Figures of one application; none where the kernel gives none.
struct TaskFigures {
  std::optional<std::uint64_t> virtualSize = {};   ///< bytes
  std::optional<std::uint64_t> residentSize = {};  ///< bytes
  std::optional<int> threadCount = {};
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
  TaskFigures figures = {};
  std::string executablePath = {};  ///< the kernel's bytes, in any encoding; empty when unknown
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
