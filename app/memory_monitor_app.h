#pragma once

#include <memory>

#include "app/command_line.h"

namespace orvane {

class SingleInstance;

/// The program: makes every service, hands them to the delegate and runs the event loop.
class MemoryMonitorApp {
 public:
  /// Needs the QGuiApplication. `instance` must outlive the object.
  explicit MemoryMonitorApp(SingleInstance& instance);
  MemoryMonitorApp(const MemoryMonitorApp&) = delete;
  MemoryMonitorApp& operator=(const MemoryMonitorApp&) = delete;
  ~MemoryMonitorApp();

  /// Launches and runs until the program is asked to end; the process's exit status.
  [[nodiscard]] int run(StartWish wish);

 private:
  struct Services;

  std::unique_ptr<Services> services_;
};

}  // namespace orvane
