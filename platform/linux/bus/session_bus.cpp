#include "platform/linux/bus/session_bus.h"

#include <sys/eventfd.h>

#include <QtCore/QTimer>
#include <algorithm>
#include <system_error>
#include <thread>
#include <vector>

#include "platform/linux/bus/bus_address.h"
#include "platform/linux/files/file_descriptor.h"

namespace orvane {
namespace {

/// The first bus of the session that answers; an unconnected one when none does.
///
/// The library's own connecting waits up to 25 s for a bus that accepts and says nothing, with a
/// lock held that every other use of D-Bus in the process needs, so only a bus that has just
/// answered is handed to it.
QDBusConnection connectToSession(const QString& name, int cancelDescriptor,
                                 std::chrono::milliseconds answerTimeout) {
  for (const BusAddress& address : sessionBusAddresses()) {
    if (!busAnswers(address, cancelDescriptor, answerTimeout)) continue;
    QDBusConnection connection =
        QDBusConnection::connectToBus(QString::fromStdString(address.text), name);
    if (connection.isConnected()) return connection;
    QDBusConnection::disconnectFromBus(name);
  }
  return QDBusConnection(QString());
}

constexpr const char* addressVariable = "DBUS_SESSION_BUS_ADDRESS";
constexpr std::chrono::milliseconds toolkitPatience{300};

bool anyBusAnswers(std::chrono::milliseconds timeout) {
  const std::vector<BusAddress> addresses = sessionBusAddresses();
  return std::any_of(addresses.begin(), addresses.end(), [timeout](const BusAddress& address) {
    return busAnswers(address, -1, timeout);
  });
}

}  // namespace

void keepToolkitOffSilentBus() {
  if (anyBusAnswers(toolkitPatience)) return;
  // It connects once and keeps what came of it.
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

class SessionBus::Private : public QObject {
  Q_OBJECT

 public:
  Private(SessionBus* bus, SessionBusTiming timing)
      : bus_(bus), timing_(timing), cancel_(::eventfd(0, EFD_CLOEXEC)) {
    retry_.setSingleShot(true);
    retry_.setTimerType(Qt::CoarseTimer);
    retry_.setInterval(timing_.retryInterval);
    QObject::connect(&retry_, &QTimer::timeout, this, &Private::attempt);
  }

  ~Private() override {
    ::eventfd_write(cancel_.get(), 1);
    if (worker_.joinable()) worker_.join();
    disconnectCurrent();
    // A connection that the last attempt made but this thread has not taken over.
    if (!attemptName_.isEmpty()) QDBusConnection::disconnectFromBus(attemptName_);
  }

  void attempt() {
    if (worker_.joinable()) worker_.join();
    attemptName_ = QStringLiteral("orvane-%1-%2")
                       .arg(reinterpret_cast<quintptr>(this), 0, 16)
                       .arg(++attempts_);
    try {
      worker_ = std::thread([this, name = attemptName_] {
        result_ = connectToSession(name, cancel_.get(), timing_.answerTimeout);
        QMetaObject::invokeMethod(this, "finish", Qt::QueuedConnection);
      });
    } catch (const std::system_error&) {
      // No thread can be had now: as if no bus had answered.
      QMetaObject::invokeMethod(this, "finish", Qt::QueuedConnection);
    }
  }

  [[nodiscard]] const QDBusConnection& connection() const { return connection_; }
  [[nodiscard]] bool isSettled() const { return isSettled_; }

 private:
  Q_SLOT void lost() {
    if (name_.isEmpty()) return;
    disconnectCurrent();
    retry_.start();
    Q_EMIT bus_->disconnected();
  }

  Q_SLOT void finish() {
    if (worker_.joinable()) worker_.join();
    adopt(std::exchange(result_, QDBusConnection(QString())),
          std::exchange(attemptName_, QString()));
    const bool isFirst = !std::exchange(isSettled_, true);
    if (connection_.isConnected()) {
      Q_EMIT bus_->connected();
      return;
    }
    disconnectCurrent();
    retry_.start();
    if (isFirst) Q_EMIT bus_->unavailable();
  }

  void adopt(const QDBusConnection& connection, const QString& name) {
    name_ = name;
    connection_ = connection;
    connection_.connect(QString(), QStringLiteral("/org/freedesktop/DBus/Local"),
                        QStringLiteral("org.freedesktop.DBus.Local"),
                        QStringLiteral("Disconnected"), this, SLOT(lost()));
  }

  void disconnectCurrent() {
    if (name_.isEmpty()) return;
    connection_ = QDBusConnection(QString());
    QDBusConnection::disconnectFromBus(std::exchange(name_, QString()));
  }

  SessionBus* bus_;
  SessionBusTiming timing_;
  FileDescriptor cancel_;
  QTimer retry_;
  std::thread worker_;
  QDBusConnection result_{QString()};  ///< the worker's until it is joined
  int attempts_ = 0;
  bool isSettled_ = false;
  QString attemptName_;
  QString name_;
  QDBusConnection connection_{QString()};
};

SessionBus::SessionBus(QObject* parent, SessionBusTiming timing)
    : QObject(parent), d_(std::make_unique<Private>(this, timing)) {}

SessionBus::~SessionBus() = default;

void SessionBus::start() {
  d_->attempt();
}

bool SessionBus::isConnected() const {
  return d_->connection().isConnected();
}

bool SessionBus::isSettled() const {
  return d_->isSettled();
}

QDBusConnection SessionBus::connection() const {
  return d_->connection();
}

}  // namespace orvane

#include "session_bus.moc"
