#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace orvane {

/// Figures of one application; none where the kernel gives none.
struct TaskFigures {
  std::optional<std::uint64_t> virtualSize;   ///< bytes
  std::optional<std::uint64_t> residentSize;  ///< bytes
  std::optional<int> threadCount;
};

/// Figures of the application that a process leads.
/// Threads: main thread only. A process that is gone or can't be read gives none.
class TaskInspector {
 public:
  virtual ~TaskInspector() = default;

  /// Figures of the application led by `pid`, as of the latest list of running applications.
  [[nodiscard]] virtual std::optional<TaskFigures> taskFigures(std::int32_t pid) = 0;

  /// Path of the executable of `pid` as the kernel's bytes (any encoding); none when unknown.
  [[nodiscard]] virtual std::optional<std::string> executablePath(std::int32_t pid) = 0;
};

}  // namespace orvane
