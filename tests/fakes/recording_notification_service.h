#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/notification_service.h"

namespace orvane::fakes {

/// Records every request and answers it at once with `error`.
class RecordingNotificationService : public NotificationService {
 public:
  void setDelegate(NotificationDelegate* newDelegate) override { delegate = newDelegate; }

  void requestAuthorization(const AuthorizationOptions& options,
                            std::function<void(bool, const Error&)> handler) override {
    authorizations.push_back(options);
    handler(!error && granted, error);
  }
  void add(const NotificationRequest& request, std::function<void(const Error&)> handler) override {
    requests.push_back(request);
    handler(error);
  }

  NotificationDelegate* delegate = nullptr;
  Error error;
  bool granted = true;
  std::vector<AuthorizationOptions> authorizations;
  std::vector<NotificationRequest> requests;
};

}  // namespace orvane::fakes
