#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace orvane {

/// What /proc/PID/stat says about a process, as far as it matters here.
struct ProcessStat {
  std::int32_t pid = 0;
  std::string_view command;  ///< as the kernel cuts it (15 bytes); a part of the parsed text
  char state = '?';
  std::int32_t parent = 0;
  std::int32_t processGroup = 0;
  std::int32_t session = 0;
  std::uint64_t flags = 0;
  int threads = 0;
  std::uint64_t startTime = 0;    ///< clock ticks since the machine started
  std::uint64_t virtualSize = 0;  ///< bytes
  /// Address of the stack's start: the kernel draws it at each exec, and a fork keeps it. 0 when
  /// the kernel hides it.
  std::uint64_t startStack = 0;

  /// Exited, but not waited for by its parent yet.
  [[nodiscard]] bool isZombie() const { return state == 'Z' || state == 'X' || state == 'x'; }
  /// By its flag (PF_KTHREAD): in a container the pid 2 can be any program's.
  [[nodiscard]] bool isKernelThread() const;
};

/// What /proc/PID/statm says, in pages.
struct ProcessPages {
  std::uint64_t size = 0;
  std::uint64_t resident = 0;
  std::uint64_t shared = 0;  ///< resident pages that belong to files or shared memory
  std::uint64_t text = 0;    ///< the program's code

  bool operator==(const ProcessPages&) const = default;
};

/// Reads the text of /proc/PID/stat; none when it is cut short or isn't one.
[[nodiscard]] std::optional<ProcessStat> parseProcessStat(std::string_view text);

/// Reads the text of /proc/PID/statm; none when it is cut short or isn't one.
[[nodiscard]] std::optional<ProcessPages> parseProcessPages(std::string_view text);

/// Bytes of the line "Pss:" of the text of /proc/PID/smaps_rollup: what the process has for itself
/// and its part of what it shares. None when there is no such line.
[[nodiscard]] std::optional<std::uint64_t> parseProportionalSize(std::string_view text);

}  // namespace orvane
