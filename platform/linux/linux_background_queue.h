#pragma once

#include <condition_variable>
#include <deque>
#include <list>
#include <mutex>
#include <thread>

#include "platform/dispatch.h"

namespace orvane {

/// At most two threads, made when there is work and gone when there is none. Blocks that haven't
/// begun when the queue is destroyed are dropped. Where the system gives no thread at all a block
/// runs inside `async`.
class LinuxBackgroundQueue : public BackgroundQueue {
 public:
  LinuxBackgroundQueue() = default;
  ~LinuxBackgroundQueue() override;

  void async(Block block) override;
  void sleep(Duration duration) override;

 private:
  struct Worker {
    std::thread thread;
    bool finished = false;
  };

  void work(Worker& worker);
  /// False when the system has no thread left. Needs the lock.
  bool addWorker();
  void joinFinished();

  std::mutex mutex_;
  std::condition_variable ending_;
  bool isEnding_ = false;
  std::deque<Block> blocks_;
  std::list<Worker> workers_;
};

}  // namespace orvane
