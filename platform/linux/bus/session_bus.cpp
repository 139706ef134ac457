#include "platform/linux/bus/session_bus.h"

#include <QtCore/QStringList>
#include <QtDBus/QDBusPendingCallWatcher>
#include <QtDBus/QDBusPendingReply>
#include <limits>
#include <utility>

namespace orvane {
namespace {

constexpr const char* addressVariable = "DBUS_SESSION_BUS_ADDRESS";
constexpr int busAnswerMilliseconds = 300;
constexpr int noTimeout = std::numeric_limits<int>::max();  // as libdbus defines it

/// DBUS_SESSION_BUS_ADDRESS without the entries that start a bus, else the socket "bus" in
/// XDG_RUNTIME_DIR; empty when neither is known.
QString sessionBusAddress() {
  if (!qEnvironmentVariableIsEmpty(addressVariable)) {
    QStringList entries = qEnvironmentVariable(addressVariable).split(QLatin1Char(';'));
    entries.removeIf([](const QString& entry) { return entry.startsWith(u"autolaunch:"); });
    return entries.join(QLatin1Char(';'));
  }
  const QByteArray folder = qgetenv("XDG_RUNTIME_DIR");
  if (!folder.startsWith('/')) return {};
  return QString::fromLatin1("unix:path=" + folder.toPercentEncoding("/", "~") + "/bus");
}

/// QDBusConnection::connectToBus waits for the bus's answer with a lock held that every other use
/// of QtDBus needs. connectToPeer only opens the socket, and Hello is then a call like any other.
QDBusConnection openBus(const QString& connectionName) {
  return QDBusConnection::connectToPeer(sessionBusAddress(), connectionName);
}

bool busAnswers(int milliseconds) {
  const auto connectionName = QStringLiteral("orvane-greeting");
  const QDBusMessage answer =
      openBus(connectionName).call(busCall(QStringLiteral("Hello")), QDBus::Block, milliseconds);
  QDBusConnection::disconnectFromPeer(connectionName);
  return answer.type() == QDBusMessage::ReplyMessage;
}

}  // namespace

void keepQtOffSilentBus() {
  if (busAnswers(busAnswerMilliseconds)) return;
  // QDBusConnection::sessionBus connects once and keeps what came of it.
  const bool isSet = qEnvironmentVariableIsSet(addressVariable);
  const QByteArray address = qgetenv(addressVariable);
  qputenv(addressVariable, "unix:path=/nonexistent");
  QDBusConnection::sessionBus();
  if (isSet) {
    qputenv(addressVariable, address);
  } else {
    qunsetenv(addressVariable);
  }
}

QDBusMessage busCall(const QString& method, const QVariantList& arguments) {
  const auto bus = QStringLiteral("org.freedesktop.DBus");
  QDBusMessage message =
      QDBusMessage::createMethodCall(bus, QStringLiteral("/org/freedesktop/DBus"), bus, method);
  message.setArguments(arguments);
  return message;
}

SessionBus::SessionBus(QObject* parent, SessionBusTiming timing)
    : QObject(parent),
      timing_(timing),
      connectionName_(QStringLiteral("orvane-%1").arg(reinterpret_cast<quintptr>(this), 0, 16)) {
  retry_.setSingleShot(true);
  retry_.setTimerType(Qt::CoarseTimer);
  retry_.setInterval(timing_.retryInterval);
  connect(&retry_, &QTimer::timeout, this, &SessionBus::attempt);
}

SessionBus::~SessionBus() {
  QDBusConnection::disconnectFromPeer(connectionName_);
}

void SessionBus::start() {
  QTimer::singleShot(timing_.answerTimeout, this, &SessionBus::reportUnavailable);
  attempt();
}

void SessionBus::attempt() {
  connection_ = openBus(connectionName_);
  if (!connection_.isConnected()) return QTimer::singleShot(0, this, &SessionBus::lose);
  connection_.connect(QString(), QStringLiteral("/org/freedesktop/DBus/Local"),
                      QStringLiteral("org.freedesktop.DBus.Local"), QStringLiteral("Disconnected"),
                      this, SLOT(lose()));
  call(
      busCall(QStringLiteral("Hello")), this,
      [this](const QDBusPendingReply<QString>& reply) {
        reply.isError() ? lose() : greeted(reply.value());
      },
      noTimeout);
}

void SessionBus::greeted(const QString& uniqueName) {
  uniqueName_ = uniqueName;
  isSettled_ = true;
  Q_EMIT connected();
}

void SessionBus::lose() {
  // The end of a connection is told by Disconnected and by Hello's error.
  if (retry_.isActive()) return;
  connection_ = QDBusConnection(QString());
  QDBusConnection::disconnectFromPeer(connectionName_);
  retry_.start();
  const bool wasConnected = !std::exchange(uniqueName_, QString()).isEmpty();
  wasConnected ? Q_EMIT disconnected() : reportUnavailable();
}

void SessionBus::reportUnavailable() {
  if (!std::exchange(isSettled_, true)) Q_EMIT unavailable();
}

bool SessionBus::isConnected() const {
  return !uniqueName_.isEmpty() && connection_.isConnected();
}

QDBusConnection SessionBus::connection() const {
  return isConnected() ? connection_ : QDBusConnection(QString());
}

void SessionBus::call(const QDBusMessage& message, QObject* context,
                      std::function<void(const QDBusPendingCall&)> handler, int timeout) const {
  auto* watcher = new QDBusPendingCallWatcher(connection_.asyncCall(message, timeout), context);
  connect(watcher, &QDBusPendingCallWatcher::finished, context,
          [watcher, answered = std::move(handler)] {
            watcher->deleteLater();
            answered(*watcher);
          });
}

void SessionBus::subscribe(const QString& path, const QString& interface, const QString& signal,
                           const QString& argument, QObject* receiver, const char* slot) {
  const QStringList arguments = argument.isEmpty() ? QStringList() : QStringList(argument);
  connection_.connect(QString(), path, interface, signal, arguments, QString(), receiver, slot);
  QString rule = QStringLiteral("type='signal',path='%1',interface='%2',member='%3'")
                     .arg(path, interface, signal);
  if (!argument.isEmpty()) rule += QStringLiteral(",arg0='%1'").arg(argument);
  connection_.send(busCall(QStringLiteral("AddMatch"), {rule}));
}

void SessionBus::subscribeToOwner(const QString& service, QObject* receiver, const char* slot) {
  subscribe(QStringLiteral("/org/freedesktop/DBus"), QStringLiteral("org.freedesktop.DBus"),
            QStringLiteral("NameOwnerChanged"), service, receiver, slot);
}

}  // namespace orvane
