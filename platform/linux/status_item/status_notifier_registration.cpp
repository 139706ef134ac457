#include "platform/linux/status_item/status_notifier_registration.h"

#include <QtDBus/QDBusPendingReply>
#include <fstream>
#include <string>

namespace orvane {
namespace {

constexpr int retryMilliseconds = 1000;
constexpr int retryCount = 5;

QString watcherName() {
  return QStringLiteral("org.kde.StatusNotifierWatcher");
}

QString watcherPath() {
  return QStringLiteral("/StatusNotifierWatcher");
}

std::string processName(uint pid) {
  std::ifstream file("/proc/" + std::to_string(pid) + "/comm");
  std::string name;
  std::getline(file, name);
  return name;
}

}  // namespace

StatusNotifierRegistration::StatusNotifierRegistration(SessionBus& bus) : bus_(bus) {
  retry_.setSingleShot(true);
  retry_.setInterval(retryMilliseconds);
  connect(&retry_, &QTimer::timeout, this, &StatusNotifierRegistration::registerItem);
}

void StatusNotifierRegistration::start() {
  connect(&bus_, &SessionBus::connected, this, &StatusNotifierRegistration::attach);
  connect(&bus_, &SessionBus::disconnected, this, [this] { setOwner(QString()); });
  if (bus_.isConnected()) attach();
}

template <typename Handler>
void StatusNotifierRegistration::call(const QDBusMessage& message, Handler handler) {
  bus_.call(message, this,
            [this, handler, generation = generation_](const QDBusPendingCall& answer) {
              if (generation == generation_) handler(answer);
            });
}

void StatusNotifierRegistration::attach() {
  bus_.subscribeToOwner(watcherName(), this, SLOT(ownerChanged(QString, QString, QString)));
  bus_.subscribe(watcherPath(), watcherName(), QStringLiteral("StatusNotifierHostRegistered"), {},
                 this, SLOT(askForHost()));
  call(busCall(QStringLiteral("GetNameOwner"), {watcherName()}),
       [this](const QDBusPendingReply<QString>& reply) {
         if (!reply.isError() && reply.value() != owner_) setOwner(reply.value());
       });
}

void StatusNotifierRegistration::ownerChanged(const QString& /*name*/, const QString& /*oldOwner*/,
                                              const QString& newOwner) {
  setOwner(newOwner);
}

void StatusNotifierRegistration::setOwner(const QString& owner) {
  ++generation_;
  retry_.stop();
  retriesLeft_ = retryCount;
  isShown_ = false;
  owner_ = owner;
  if (!owner_.isEmpty()) identify();
}

// The panel is identified before the item is registered: a panel asks for the icon at once, and one
// that draws no label gets the number as the icon.
void StatusNotifierRegistration::identify() {
  call(busCall(QStringLiteral("GetConnectionUnixProcessID"), {owner_}),
       [this](const QDBusPendingReply<uint>& reply) {
         setHost(reply.isError() ? PanelHost{} : panelHost(processName(reply.value())));
         registerItem();
       });
}

void StatusNotifierRegistration::setHost(const PanelHost& host) {
  if (host == host_) return;
  host_ = host;
  Q_EMIT hostChanged();
}

void StatusNotifierRegistration::registerItem() {
  auto message = QDBusMessage::createMethodCall(owner_, watcherPath(), watcherName(),
                                                QStringLiteral("RegisterStatusNotifierItem"));
  message.setArguments({bus_.uniqueName()});
  call(message, [this](const QDBusPendingReply<>& reply) {
    reply.isError() ? scheduleRetry() : askForHost();
  });
}

void StatusNotifierRegistration::askForHost() {
  if (owner_.isEmpty()) return;
  auto message = QDBusMessage::createMethodCall(owner_, watcherPath(),
                                                QStringLiteral("org.freedesktop.DBus.Properties"),
                                                QStringLiteral("Get"));
  message.setArguments({watcherName(), QStringLiteral("IsStatusNotifierHostRegistered")});
  call(message, [this](const QDBusPendingReply<QDBusVariant>& reply) {
    isShown_ = reply.isError() || reply.value().variant().toBool();
  });
}

// A panel may own the name a moment before it can answer.
void StatusNotifierRegistration::scheduleRetry() {
  if (retriesLeft_ == 0) return;
  --retriesLeft_;
  retry_.start();
}

}  // namespace orvane
