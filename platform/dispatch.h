#pragma once

#include <chrono>
#include <functional>
#include <memory>

namespace orvane {

using Block = std::function<void()>;
using Duration = std::chrono::duration<double>;

/// Runs blocks on the main thread, from its event loop and never inside the call itself.
/// Threads: any may submit. Blocks still pending when the loop ends are dropped.
class MainQueue {
 public:
  virtual ~MainQueue() = default;

  virtual void async(Block block) = 0;
  virtual void after(Duration delay, Block block) = 0;
};

/// A running repeating timer; destroying it stops it.
class RepeatingTimer {
 public:
  virtual ~RepeatingTimer() = default;
};

/// Makes repeating timers on the main thread.
/// Threads: main thread only. The first firing comes one interval after the call.
class TimerService {
 public:
  virtual ~TimerService() = default;

  [[nodiscard]] virtual std::unique_ptr<RepeatingTimer> repeat(Duration interval, Block block) = 0;
};

/// Runs long work beside the main thread, several blocks at a time.
/// Threads: any may submit. Destroying the queue wakes its sleepers and waits for running blocks.
class BackgroundQueue {
 public:
  virtual ~BackgroundQueue() = default;

  virtual void async(Block block) = 0;

  /// Holds the calling background block for `duration`; cut short when the queue is ending.
  virtual void sleep(Duration duration) = 0;

  /// True once the queue waits for its running blocks: long ones stop then. Threads: any.
  [[nodiscard]] virtual bool isEnding() = 0;
};

}  // namespace orvane
