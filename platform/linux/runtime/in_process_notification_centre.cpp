#include "platform/linux/runtime/in_process_notification_centre.h"

#include <mutex>
#include <utility>
#include <vector>

namespace orvane {

class InProcessNotificationCentre::Observers {
 public:
  using Observer = std::function<void()>;

  void add(std::string name, Observer observer) {
    const std::scoped_lock lock(mutex_);
    entries_.push_back({std::move(name), std::make_shared<Observer>(std::move(observer))});
  }

  [[nodiscard]] std::vector<std::shared_ptr<Observer>> named(std::string_view name) {
    const std::scoped_lock lock(mutex_);
    std::vector<std::shared_ptr<Observer>> found;
    for (const Entry& entry : entries_) {
      if (entry.name == name) found.push_back(entry.observer);
    }
    return found;
  }

 private:
  struct Entry {
    std::string name;
    std::shared_ptr<Observer> observer;
  };

  std::mutex mutex_;
  std::vector<Entry> entries_;
};

InProcessNotificationCentre::InProcessNotificationCentre(MainQueue& mainQueue)
    : mainQueue_(mainQueue), observers_(std::make_shared<Observers>()) {}

InProcessNotificationCentre::~InProcessNotificationCentre() = default;

void InProcessNotificationCentre::post(std::string_view name) {
  auto called = observers_->named(name);
  if (called.empty()) return;
  mainQueue_.async([alive = std::weak_ptr(observers_), called = std::move(called)] {
    for (const auto& observer : called) {
      if (alive.expired()) return;
      (*observer)();
    }
  });
}

void InProcessNotificationCentre::addObserver(std::string name, std::function<void()> observer) {
  observers_->add(std::move(name), std::move(observer));
}

}  // namespace orvane
