#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvane {

/// What part a process plays in an application.
enum class ProcessRole {
  program,      ///< does the work itself
  shell,        ///< an interactive shell: what it starts is another program
  script,       ///< a shell script, which may only start the program proper
  wrapper,      ///< only starts the program proper: a sandbox, a time limit
  launcher,     ///< a panel, a window manager: other programs start from it, its helpers aside
  sessionRoot,  ///< starts the desktop session: what it starts stands for itself
};

/// What a process runs.
struct ProcessCommand {
  std::string name;  ///< without folder; a script's own name rather than its interpreter's
  std::string path;  ///< of the program or script; may be relative, empty for a mere interpreter
  ProcessRole role = ProcessRole::program;
};

/// Splits the text of /proc/PID/cmdline.
[[nodiscard]] std::vector<std::string> parseCommandLine(std::string_view text);

/// Tells what runs from the executable's path (empty when the kernel hides it), the arguments and
/// the kernel's name of the process.
[[nodiscard]] ProcessCommand processCommand(std::string_view executable,
                                            const std::vector<std::string>& arguments,
                                            std::string_view kernelName);

/// The desktop file a process was launched from, out of the text of /proc/PID/environ. None when
/// the variables were inherited from another process than `pid`.
[[nodiscard]] std::optional<std::string> parseLaunchedDesktopFile(std::string_view environment,
                                                                  std::int32_t pid);

/// The arguments of a desktop entry's Exec line, unquoted, field codes and "env" with its
/// assignments left out. None when its quotes don't match or nothing is left.
[[nodiscard]] std::optional<std::vector<std::string>> parseExecLine(std::string_view line);

/// The part after the last slash.
[[nodiscard]] std::string_view fileName(std::string_view path);

}  // namespace orvane
