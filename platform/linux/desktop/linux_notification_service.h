#pragma once

#include <QtCore/QObject>
#include <QtCore/QStringList>
#include <deque>
#include <map>
#include <optional>

#include "platform/notification_service.h"

class QDBusMessage;

namespace orvane {

class SessionBus;

/// The desktop's notification service on the session bus.
///
/// Threads: main thread only; handlers run there too, from the event loop or, when there is no bus,
/// inside the call. What is asked while the first connection to the bus is still being made waits
/// for it. Handlers that haven't run when the object is destroyed never do.
class LinuxNotificationService : public QObject, public NotificationService {
  Q_OBJECT

 public:
  /// `bus` must outlive the object. `isFrontmost` tells whether the program is the active one.
  LinuxNotificationService(SessionBus& bus, std::function<bool()> isFrontmost);

  void setDelegate(NotificationDelegate* delegate) override { delegate_ = delegate; }
  void requestAuthorization(const AuthorizationOptions& options,
                            std::function<void(bool granted, const Error&)> handler) override;
  void add(const NotificationRequest& request, std::function<void(const Error&)> handler) override;

 private:
  using Capabilities = std::optional<QStringList>;
  using Reply = std::function<void(const QDBusMessage& reply, const Error& error)>;

  Q_SLOT void actionInvoked(uint id, const QString& action);
  Q_SLOT void notificationClosed(uint id, uint reason);
  Q_SLOT void serviceOwnerChanged(const QString& name, const QString& oldOwner,
                                  const QString& newOwner);

  void subscribe();
  void runWaiting();
  void whenConnected(std::function<void(const Error&)> step);
  void call(const QDBusMessage& message, Reply reply);
  void withCapabilities(std::function<void(const Error&)> step);
  void deliver(const NotificationRequest& request, std::function<void(const Error&)> handler);
  [[nodiscard]] QDBusMessage notifyMessage(const NotificationRequest& request, bool sound) const;
  void remember(uint id, const NotificationRequest& request);

  SessionBus& bus_;
  std::function<bool()> isFrontmost_;
  NotificationDelegate* delegate_ = nullptr;
  Capabilities capabilities_;
  std::deque<std::function<void(const Error&)>> waiting_;
  std::map<uint, NotificationRequest> shown_;  ///< by the service's id, the latest ones
};

}  // namespace orvane
