#include "platform/linux/runtime/linux_dispatch.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QEvent>
#include <QtCore/QTimer>
#include <algorithm>
#include <utility>

namespace orvane {
namespace {

using SteadyClock = std::chrono::steady_clock;
using Milliseconds = std::chrono::milliseconds;

Milliseconds asMilliseconds(Duration duration) {
  constexpr Duration longest = std::chrono::hours(24 * 20);
  return std::chrono::ceil<Milliseconds>(std::clamp(duration, Duration{0}, longest));
}

class BlockEvent : public QEvent {
 public:
  explicit BlockEvent(Block block) : QEvent(QEvent::User), block_(std::move(block)) {}
  void run() const { block_(); }

 private:
  Block block_;
};

class QtRepeatingTimer : public RepeatingTimer {
 public:
  QtRepeatingTimer(Duration interval, const Block& block) {
    QObject::connect(&timer_, &QTimer::timeout, &timer_, block);
    timer_.setTimerType(Qt::CoarseTimer);
    timer_.start(asMilliseconds(interval));
  }

 private:
  QTimer timer_;
};

}  // namespace

/// Runs the blocks that are posted to it as events.
class LinuxMainQueue::Context : public QObject {
 public:
  bool event(QEvent* event) override {
    auto* blockEvent = dynamic_cast<BlockEvent*>(event);
    if (blockEvent == nullptr) return QObject::event(event);
    blockEvent->run();
    return true;
  }

  void runAt(SteadyClock::time_point due, const Block& block) {
    // The timer's parent owns it from the start.
    QTimer* timer = std::make_unique<QTimer>(this).release();
    timer->setSingleShot(true);
    timer->setTimerType(Qt::PreciseTimer);
    connect(timer, &QTimer::timeout, this, [timer, block] {
      timer->deleteLater();
      block();
    });
    timer->start(asMilliseconds(due - SteadyClock::now()));
  }
};

LinuxMainQueue::LinuxMainQueue() : context_(std::make_unique<Context>()) {}

LinuxMainQueue::~LinuxMainQueue() = default;

void LinuxMainQueue::async(Block block) {
  QCoreApplication::postEvent(context_.get(),
                              std::make_unique<BlockEvent>(std::move(block)).release());
}

void LinuxMainQueue::after(Duration delay, Block block) {
  const auto due = SteadyClock::now() + asMilliseconds(delay);
  async([context = context_.get(), due, pending = std::move(block)] {
    context->runAt(due, pending);
  });
}

std::unique_ptr<RepeatingTimer> LinuxTimerService::repeat(Duration interval, Block block) {
  return std::make_unique<QtRepeatingTimer>(interval, block);
}

}  // namespace orvane
