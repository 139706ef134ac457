#include "platform/linux/runtime/linux_background_queue.h"

#include <QtCore/QTimer>
#include <chrono>
#include <system_error>
#include <utility>

namespace orvane {
namespace {

constexpr std::size_t mostWorkers = 2;
constexpr std::chrono::seconds retryInterval{1};

}  // namespace

LinuxBackgroundQueue::~LinuxBackgroundQueue() {
  const std::scoped_lock lock(mutex_);
  isEnding_ = true;
  blocks_.clear();
  ending_.notify_all();
}

void LinuxBackgroundQueue::async(Block block) {
  const std::scoped_lock lock(mutex_);
  if (isEnding_) return;
  blocks_.push_back(std::move(block));
  addWorker();
}

void LinuxBackgroundQueue::addWorker() {
  workers_.remove_if([](const Worker& worker) { return worker.finished; });
  if (blocks_.empty() || workers_.size() == mostWorkers) return;
  Worker& worker = workers_.emplace_back();
  try {
    worker.thread = std::jthread([this, &worker] { work(worker); });
  } catch (const std::system_error&) {
    workers_.pop_back();
    if (!workers_.empty()) return;
    QTimer::singleShot(retryInterval, &retries_, [this] {
      const std::scoped_lock lock(mutex_);
      addWorker();
    });
  }
}

void LinuxBackgroundQueue::sleep(Duration duration) {
  std::unique_lock lock(mutex_);
  ending_.wait_for(lock, duration, [this] { return isEnding_; });
}

bool LinuxBackgroundQueue::isEnding() {
  const std::scoped_lock lock(mutex_);
  return isEnding_;
}

void LinuxBackgroundQueue::work(Worker& worker) {
  std::unique_lock lock(mutex_);
  while (!blocks_.empty()) {
    Block block = std::move(blocks_.front());
    blocks_.pop_front();
    lock.unlock();
    block();
    block = nullptr;
    lock.lock();
  }
  worker.finished = true;
}

}  // namespace orvane
