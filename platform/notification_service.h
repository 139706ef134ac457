#pragma once

#include <functional>
#include <optional>
#include <string>

namespace orvane {

/// What one desktop notification says.
struct NotificationContent {
  std::string title;
  std::string body;
  bool defaultSound = false;  ///< play the desktop's default alert sound
};

/// One notification to post; a new identifier makes a separate notification.
struct NotificationRequest {
  std::string identifier;
  NotificationContent content;
};

/// What the program asks to be allowed to do.
struct AuthorizationOptions {
  bool badge = false;
  bool sound = false;
  bool alert = false;
};

/// How a notification is presented while the program is frontmost.
struct PresentationOptions {
  bool sound = false;
  bool banner = false;
};

/// Asked by the service about notifications of this program. Called on the main thread.
class NotificationDelegate {
 public:
  virtual ~NotificationDelegate() = default;

  /// How to present a notification that arrives while the program is frontmost.
  virtual PresentationOptions willPresentNotification(const NotificationRequest& request) = 0;

  /// The user clicked the notification; `completion` must be called once.
  virtual void didReceiveResponse(const NotificationRequest& request,
                                  const std::function<void()>& completion) = 0;
};

/// The desktop's notification service.
/// Calls return at once. Handlers may run on any thread, once; an empty error means success.
class NotificationService {
 public:
  using Error = std::optional<std::string>;

  virtual ~NotificationService() = default;

  /// `delegate` must outlive the service; null removes it.
  virtual void setDelegate(NotificationDelegate* delegate) = 0;

  /// Asks whether notifications can be shown. No service on the desktop is an error.
  virtual void requestAuthorization(const AuthorizationOptions& options,
                                    std::function<void(bool granted, const Error&)> handler) = 0;

  /// Posts a notification for immediate delivery.
  virtual void add(const NotificationRequest& request,
                   std::function<void(const Error&)> handler) = 0;
};

}  // namespace orvane
