#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace orvane {

/// The systemd unit a process runs in, when it stands for one application or service.
struct SystemdUnit {
  std::string path;          ///< of the control group, up to the unit itself
  std::string id;            ///< the application's id, or the service's name
  bool application = false;  ///< the unit's name says that it is an application

  bool operator==(const SystemdUnit&) const = default;
};

/// Finds the innermost such unit in the text of /proc/PID/cgroup (of either version, or both).
/// None for login sessions, terminal tabs and everything else that holds mixed processes.
[[nodiscard]] std::optional<SystemdUnit> parseControlGroup(std::string_view text);

}  // namespace orvane
