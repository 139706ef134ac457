#pragma once

#include <QtCore/QObject>
#include <QtCore/QString>
#include <QtCore/QTimer>
#include <QtDBus/QDBusMessage>

#include "platform/linux/bus/session_bus.h"
#include "platform/linux/status_item/panel_host.h"

namespace orvane {

/// Tells the desktop's list of status items about ours: now, whenever a panel takes the list over,
/// and again on every new connection to the bus. All calls are asynchronous.
/// Threads: main thread only.
class StatusNotifierRegistration : public QObject {
  Q_OBJECT

 public:
  /// The item must be on the bus before this object can register it, on every connection.
  explicit StatusNotifierRegistration(SessionBus& bus);

  /// Starts on the current connection, if there is one.
  void start();

  /// True while the item is in the list and some panel shows what is listed.
  [[nodiscard]] bool isShown() const { return isShown_; }

  /// The panel that the list belongs to.
  [[nodiscard]] const PanelHost& host() const { return host_; }

 Q_SIGNALS:
  void hostChanged();

 private Q_SLOTS:
  void ownerChanged(const QString& name, const QString& oldOwner, const QString& newOwner);
  /// The list may be kept by a service that shows nothing itself.
  void askForHost();

 private:
  void attach();
  void setOwner(const QString& owner);
  void identify();
  void setHost(const PanelHost& host);
  void registerItem();
  void scheduleRetry();
  /// Sends a call and hands its answer to `handler`, unless the list changed hands meanwhile.
  template <typename Handler>
  void call(const QDBusMessage& message, Handler handler);

  SessionBus& bus_;
  QString owner_;
  QTimer retry_;
  int retriesLeft_ = 0;
  unsigned generation_ = 0;
  bool isShown_ = false;
  PanelHost host_;
};

}  // namespace orvane
