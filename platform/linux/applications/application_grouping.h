#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "platform/linux/applications/process_command.h"

namespace orvane {

/// What the grouping needs to know about one process.
struct GroupedProcess {
  std::int32_t pid = 0;
  std::int32_t parent = 0;
  std::int32_t processGroup = 0;
  std::int32_t session = 0;
  std::uint64_t startTime = 0;  ///< clock ticks
  std::uint64_t residentSize = 0;
  bool young = false;              ///< its memory may still be that of a beginning
  std::string_view program;        ///< what it runs, as ProcessCommand::name
  std::string_view executable;     ///< path; empty when the kernel hides it
  std::string_view command;        ///< the beginning of its command line
  std::uint64_t image = 0;         ///< forks have that of their parent; 0 when the kernel hides it
  bool leads = false;              ///< its application until now
  std::string_view unit;           ///< of systemd; empty for none
  bool unitIsApplication = false;  ///< the unit stands for one application
  bool claimed = false;            ///< has other evidence of its own: a launch, a window, ...
  const void* application = nullptr;  ///< which application that evidence names; null for unknown
  bool visible = false;               ///< that application belongs into the desktop's menus
  bool ownsWindow = false;
  ProcessRole role = ProcessRole::program;
};

/// The processes of one application, as indices of the grouped ones.
struct ApplicationGroup {
  std::size_t leader = 0;            ///< the process whose death frees the application's memory
  std::size_t root = 0;              ///< the topmost process: it tells what the application is
  std::vector<std::size_t> members;  ///< all of them
};

/// Tells which processes (sorted by pid) form applications; the application with the oldest leader
/// comes first. Every process belongs to exactly one.
///
/// - One systemd unit of an application is one application.
/// - Otherwise a process with evidence of its own is one, unless it runs for the application above
///   it: the same one again, or started by nothing but wrappers.
/// - Processes without evidence belong to the application above them; below none, to their
///   service's unit, or else to the topmost command of their own tree, as far as it is one session
///   (and below an interactive shell one job).
/// - What the desktop's launchers start stands for itself, but for their own helpers.
///
/// The root of an application is its topmost process: one above a window if there are several, else
/// the oldest. It leads, unless its end would leave the memory behind: a wrapper's program leads
/// when it owns the window, was started right away or holds most of the memory, however late it
/// started; so does the other program that a program without a window runs and that holds most of
/// the memory.
[[nodiscard]] std::vector<ApplicationGroup> groupApplications(
    std::span<const GroupedProcess> processes);

}  // namespace orvane
