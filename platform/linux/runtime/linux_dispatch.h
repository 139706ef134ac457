#pragma once

#include <QtCore/QObject>
#include <memory>

#include "platform/dispatch.h"

namespace orvane {

/// Blocks on Qt's event loop of the thread that makes the queue, the main thread. It must outlive
/// every thread that submits to it.
class LinuxMainQueue : public MainQueue {
 public:
  void async(Block block) override;
  void after(Duration delay, Block block) override;

 private:
  QObject context_;  ///< its end drops what is pending
};

/// Timers on Qt's event loop, coarse ones: the kernel may wake the program for several at once.
class LinuxTimerService : public TimerService {
 public:
  [[nodiscard]] std::unique_ptr<RepeatingTimer> repeat(Duration interval, Block block) override;
};

}  // namespace orvane
