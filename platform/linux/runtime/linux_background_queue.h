#pragma once

#include <QtCore/QObject>
#include <condition_variable>
#include <deque>
#include <list>
#include <mutex>
#include <thread>

#include "platform/dispatch.h"

namespace orvane {

/// At most two threads, made when there is work and gone when there is none. Blocks that haven't
/// begun when the queue is destroyed are dropped. While the system gives no thread at all, blocks
/// wait: it is asked again every second. QThreadPool would lose the block it has no thread for.
class LinuxBackgroundQueue : public BackgroundQueue {
 public:
  LinuxBackgroundQueue() = default;
  ~LinuxBackgroundQueue() override;

  void async(Block block) override;
  void sleep(Duration duration) override;
  [[nodiscard]] bool isEnding() override;

 private:
  struct Worker {
    std::jthread thread;  ///< joined by its end
    bool finished = false;
  };

  void work(Worker& worker);
  /// Starts a worker when there is work for one. Needs the lock.
  void addWorker();

  std::mutex mutex_;
  std::condition_variable ending_;
  bool isEnding_ = false;
  std::deque<Block> blocks_;
  QObject retries_;  ///< on whose thread the system is asked again
  std::list<Worker> workers_;
};

}  // namespace orvane
