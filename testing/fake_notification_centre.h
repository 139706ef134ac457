#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/notification_centre.h"

namespace orvane::fakes {

/// Delivers every post at once.
class FakeNotificationCentre : public NotificationCentre {
 public:
  void post(std::string_view name) override {
    for (const auto& [observed, observer] : observers_) {
      if (observed == name) observer();
    }
  }
  void addObserver(std::string name, std::function<void()> observer) override {
    observers_.emplace_back(std::move(name), std::move(observer));
  }

 private:
  std::vector<std::pair<std::string, std::function<void()>>> observers_;
};

}  // namespace orvane::fakes
