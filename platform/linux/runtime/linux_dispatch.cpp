#include "platform/linux/runtime/linux_dispatch.h"

#include <QtCore/QMetaObject>
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

void LinuxMainQueue::async(Block block) {
  QMetaObject::invokeMethod(&context_, std::move(block), Qt::QueuedConnection);
}

// Not QTimer::singleShot: it keeps the block until it is due, even when the context is gone.
void LinuxMainQueue::after(Duration delay, Block block) {
  const auto due = SteadyClock::now() + asMilliseconds(delay);
  async([this, due, pending = std::move(block)] {
    auto* timer = new QTimer(&context_);
    timer->setSingleShot(true);
    timer->setTimerType(Qt::PreciseTimer);
    QObject::connect(timer, &QTimer::timeout, &context_, [timer, pending] {
      timer->deleteLater();
      pending();
    });
    timer->start(asMilliseconds(due - SteadyClock::now()));
  });
}

std::unique_ptr<RepeatingTimer> LinuxTimerService::repeat(Duration interval, Block block) {
  return std::make_unique<QtRepeatingTimer>(interval, block);
}

}  // namespace orvane
