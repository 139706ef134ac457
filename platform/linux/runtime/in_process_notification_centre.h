#pragma once

#include <memory>

#include "platform/dispatch.h"
#include "platform/notification_centre.h"

namespace orvane {

/// Delivers each post as one block on the main queue, never inside `post`. What is still pending
/// when the centre is destroyed is dropped.
class InProcessNotificationCentre : public NotificationCentre {
 public:
  explicit InProcessNotificationCentre(MainQueue& mainQueue);
  ~InProcessNotificationCentre() override;

  void post(std::string_view name) override;
  void addObserver(std::string name, std::function<void()> observer) override;

 private:
  class Observers;

  MainQueue& mainQueue_;
  std::shared_ptr<Observers> observers_;
};

}  // namespace orvane
