#pragma once

#include <algorithm>
#include <map>
#include <memory>
#include <utility>

#include "platform/clock.h"
#include "platform/dispatch.h"

namespace orvane::fakes {

/// Time and threads in one hand: a test turns the clock and every block runs on the test's own
/// thread, in the order of its due time. Nothing ever sleeps.
class VirtualTime : public Clock, public MainQueue, public TimerService, public BackgroundQueue {
 public:
  [[nodiscard]] Date now() const override { return now_; }

  void async(Block block) override { schedule(now_, std::move(block)); }

  void after(Duration delay, Block block) override {
    schedule(now_ + asTicks(delay), std::move(block));
  }

  [[nodiscard]] std::unique_ptr<RepeatingTimer> repeat(Duration interval, Block block) override {
    auto timer = std::make_unique<Timer>();
    arm(timer->alive, interval, std::make_shared<Block>(std::move(block)));
    return timer;
  }

  /// While a background block sleeps the time passes at once, and what is due runs.
  void sleep(Duration duration) override { advance(duration); }

  [[nodiscard]] bool isEnding() override { return false; }

  /// Runs what is due now, including what those blocks submit for now.
  void runPending() { advance(Duration{0}); }

  /// Moves the clock forward, running every block at its time.
  void advance(Duration duration) {
    const Date end = now_ + asTicks(duration);
    while (!due_.empty() && due_.begin()->first <= std::max(end, now_)) {
      auto first = due_.begin();
      now_ = std::max(now_, first->first);
      const Block block = std::move(first->second);
      due_.erase(first);
      block();
    }
    now_ = std::max(now_, end);
  }

 private:
  struct Timer : RepeatingTimer {
    std::shared_ptr<bool> alive = std::make_shared<bool>(true);
  };

  static Date::duration asTicks(Duration duration) {
    return std::chrono::duration_cast<Date::duration>(duration);
  }

  void schedule(Date date, Block block) { due_.emplace(date, std::move(block)); }

  void arm(const std::weak_ptr<bool>& alive, Duration interval,
           const std::shared_ptr<Block>& block) {
    schedule(now_ + asTicks(interval), [this, alive, interval, block] {
      if (alive.expired()) return;
      arm(alive, interval, block);
      (*block)();
    });
  }

  Date now_ = Date{std::chrono::seconds{1'700'000'000}};
  std::multimap<Date, Block> due_;
};

}  // namespace orvane::fakes
