#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/desktop_opener.h"
#include "platform/notification_service.h"
#include "platform/standard_output.h"

namespace orvane::fakes {

/// Keeps the printed lines.
class RecordingOutput : public StandardOutput {
 public:
  void printLine(std::string_view line) override { lines.emplace_back(line); }

  std::vector<std::string> lines;
};

/// Records what was opened.
class RecordingDesktopOpener : public DesktopOpener {
 public:
  void openUrl(const std::string& url) override { urls.push_back(url); }
  void revealFile(const std::string& /*path*/) override {}

  std::vector<std::string> urls;
};

/// Records every request and answers it at once, a post with `error`.
class RecordingNotificationService : public NotificationService {
 public:
  void setDelegate(NotificationDelegate* newDelegate) override { delegate = newDelegate; }

  void requestAuthorization(const AuthorizationOptions& options,
                            std::function<void(bool, const Error&)> handler) override {
    authorizations.push_back(options);
    handler(granted, {});
  }
  void add(const NotificationRequest& request, std::function<void(const Error&)> handler) override {
    requests.push_back(request);
    handler(error);
  }

  NotificationDelegate* delegate = nullptr;
  bool granted = true;
  Error error;
  std::vector<AuthorizationOptions> authorizations;
  std::vector<NotificationRequest> requests;
};

}  // namespace orvane::fakes
