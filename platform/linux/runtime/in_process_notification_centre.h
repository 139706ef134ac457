#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/dispatch.h"
#include "platform/notification_centre.h"

namespace orvane {

/// Delivers each post from the main queue, never inside `post`. What is still pending when the
/// centre is destroyed is dropped.
class InProcessNotificationCentre : public NotificationCentre {
 public:
  explicit InProcessNotificationCentre(MainQueue& mainQueue) : mainQueue_(mainQueue) {}
  void post(std::string_view name) override {
    for (const auto& [observed, observer] : observers_) {
      if (observed != name) continue;
      mainQueue_.async([weak = std::weak_ptr(observer)] {
        if (const auto call = weak.lock()) (*call)();
      });
    }
  }
  void addObserver(std::string name, std::function<void()> observer) override {
    observers_.emplace_back(std::move(name), std::make_shared<Block>(std::move(observer)));
  }

 private:
  MainQueue& mainQueue_;
  std::vector<std::pair<std::string, std::shared_ptr<Block>>> observers_;
};

}  // namespace orvane
