#include "platform/linux/desktop/linux_notification_service.h"

#include <QtCore/QVariantMap>
#include <QtDBus/QDBusError>
#include <QtDBus/QDBusMessage>
#include <utility>

#include "platform/linux/bus/session_bus.h"

namespace orvane {
namespace {

const auto service = QStringLiteral("org.freedesktop.Notifications");
const auto path = QStringLiteral("/org/freedesktop/Notifications");
const auto defaultAction = QStringLiteral("default");

constexpr const char* noBus = "There is no session bus";
constexpr const char* noService = "This desktop has no notification service";
constexpr std::size_t mostRemembered = 32;

QDBusMessage methodCall(const QString& method) {
  return QDBusMessage::createMethodCall(service, path, service, method);
}

/// What went wrong in the user's words where they are known, else in the bus's, as one line.
std::string description(const QDBusError& error) {
  const bool spawnFailed =
      error.name().startsWith(QStringLiteral("org.freedesktop.DBus.Error.Spawn."));
  if (spawnFailed || error.type() == QDBusError::ServiceUnknown) return noService;
  switch (error.type()) {
    case QDBusError::NoReply:
    case QDBusError::TimedOut:
    case QDBusError::Timeout:
      return "The notification service did not answer";
    case QDBusError::Disconnected:
      return "The session bus went away";
    default:
      return (error.message().isEmpty() ? error.name() : error.message())
          .simplified()
          .toStdString();
  }
}

}  // namespace

LinuxNotificationService::LinuxNotificationService(SessionBus& bus,
                                                   std::function<bool()> isFrontmost)
    : bus_(bus), isFrontmost_(std::move(isFrontmost)) {
  connect(&bus_, &SessionBus::connected, this, &LinuxNotificationService::subscribe);
  connect(&bus_, &SessionBus::unavailable, this, &LinuxNotificationService::runWaiting);
  connect(&bus_, &SessionBus::disconnected, this, [this] { capabilities_.reset(); });
  if (bus_.isConnected()) subscribe();
}

void LinuxNotificationService::subscribe() {
  bus_.subscribe(path, service, QStringLiteral("ActionInvoked"), QString(), this,
                 SLOT(actionInvoked(uint, QString)));
  bus_.subscribe(path, service, QStringLiteral("NotificationClosed"), QString(), this,
                 SLOT(notificationClosed(uint, uint)));
  bus_.subscribeToOwner(service, this, SLOT(serviceOwnerChanged(QString, QString, QString)));
  runWaiting();
}

void LinuxNotificationService::runWaiting() {
  for (const auto& step : std::exchange(waiting_, {})) whenConnected(step);
}

void LinuxNotificationService::whenConnected(std::function<void(const Error&)> step) {
  if (bus_.isConnected()) return step(std::nullopt);
  if (bus_.isSettled()) return step(noBus);
  waiting_.push_back(std::move(step));
}

void LinuxNotificationService::call(const QDBusMessage& message, Reply reply) {
  bus_.call(message, this, [answered = std::move(reply)](const QDBusPendingCall& answer) {
    answered(answer.reply(), answer.isError() ? Error(description(answer.error())) : std::nullopt);
  });
}

void LinuxNotificationService::withCapabilities(std::function<void(const Error&)> step) {
  whenConnected([this, next = std::move(step)](const Error& error) {
    if (error || capabilities_) return next(error);
    call(methodCall(QStringLiteral("GetCapabilities")),
         [this, next](const QDBusMessage& reply, const Error& failure) {
           if (!failure) capabilities_ = reply.arguments().value(0).toStringList();
           next(failure);
         });
  });
}

void LinuxNotificationService::requestAuthorization(
    const AuthorizationOptions& /*options*/,
    std::function<void(bool granted, const Error&)> handler) {
  withCapabilities(
      [answer = std::move(handler)](const Error& error) { answer(!error.has_value(), error); });
}

void LinuxNotificationService::add(const NotificationRequest& request,
                                   std::function<void(const Error&)> handler) {
  withCapabilities([this, request, answer = std::move(handler)](const Error& error) {
    if (error) return answer(error);
    deliver(request, answer);
  });
}

void LinuxNotificationService::deliver(const NotificationRequest& request,
                                       std::function<void(const Error&)> handler) {
  PresentationOptions options{.sound = true, .banner = true};
  if (delegate_ != nullptr && isFrontmost_()) {
    options = delegate_->willPresentNotification(request);
  }
  if (!options.banner) return handler(std::nullopt);
  call(notifyMessage(request, request.content.defaultSound && options.sound),
       [this, request, answer = std::move(handler)](const QDBusMessage& reply, const Error& error) {
         if (!error) remember(reply.arguments().value(0).toUInt(), request);
         answer(error);
       });
}

QDBusMessage LinuxNotificationService::notifyMessage(const NotificationRequest& request,
                                                     bool sound) const {
  constexpr uint replacesNone = 0;
  constexpr uchar normalUrgency = 1;
  constexpr int serviceDecides = -1;
  const QStringList capabilities = capabilities_.value_or(QStringList());
  QString body = QString::fromStdString(request.content.body);
  if (capabilities.contains(QStringLiteral("body-markup"))) body = body.toHtmlEscaped();
  QStringList actions;
  if (capabilities.contains(QStringLiteral("actions"))) actions << defaultAction << QString();
  QVariantMap hints{{QStringLiteral("desktop-entry"), QStringLiteral("orvane")},
                    {QStringLiteral("urgency"), QVariant::fromValue(normalUrgency)}};
  if (sound) {
    hints.insert(QStringLiteral("sound-name"), QStringLiteral("message-new-instant"));
  } else {
    hints.insert(QStringLiteral("suppress-sound"), true);
  }
  QDBusMessage message = methodCall(QStringLiteral("Notify"));
  message << QStringLiteral("Orvane") << replacesNone << QStringLiteral("orvane")
          << QString::fromStdString(request.content.title) << body << actions << hints
          << serviceDecides;
  return message;
}

void LinuxNotificationService::remember(uint id, const NotificationRequest& request) {
  shown_.insert_or_assign(id, request);
  if (shown_.size() > mostRemembered) shown_.erase(shown_.begin());
}

void LinuxNotificationService::actionInvoked(uint id, const QString& action) {
  const auto found = shown_.find(id);
  if (found == shown_.end() || action != defaultAction || delegate_ == nullptr) return;
  const NotificationRequest request = found->second;
  delegate_->didReceiveResponse(request, [] {});
}

void LinuxNotificationService::notificationClosed(uint id, uint /*reason*/) {
  shown_.erase(id);
}

void LinuxNotificationService::serviceOwnerChanged(const QString& name, const QString& /*oldOwner*/,
                                                   const QString& /*newOwner*/) {
  if (name != service) return;
  capabilities_.reset();
  shown_.clear();
}

}  // namespace orvane
