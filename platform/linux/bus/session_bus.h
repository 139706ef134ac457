#pragma once

#include <QtCore/QObject>
#include <QtCore/QTimer>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusPendingCall>

#include <chrono>
#include <functional>

namespace orvane {

/// The delays of a `SessionBus`.
struct SessionBusTiming {
  std::chrono::milliseconds retryInterval{5000};  ///< between attempts while there is no bus
  std::chrono::milliseconds answerTimeout{5000};  ///< until a silent bus counts as unavailable
};

/// Makes Qt do without the session bus when the bus accepts connections and answers nothing, as Qt
/// would wait for ever. Call it before QGuiApplication, which connects in Qt 6.8, and before the
/// first window, with which assistive technology does. Takes as long as the bus, at most 0.3 s.
void keepQtOffSilentBus();

/// A call of the bus itself, org.freedesktop.DBus.
[[nodiscard]] QDBusMessage busCall(const QString& method, const QVariantList& arguments = {});

/// The user's session bus, connected without waiting for its answer. Never starts a bus.
///
/// Without a bus, and after losing it, the connection is tried again every few seconds; one that
/// accepts and says nothing is waited for. Only a socket whose queue of connections is full holds
/// the main thread up, as connect() does. Threads: main thread only; the signals come from the
/// event loop.
class SessionBus : public QObject {
  Q_OBJECT

 public:
  explicit SessionBus(QObject* parent = nullptr, SessionBusTiming timing = {});
  ~SessionBus() override;

  /// Starts connecting; `connected` or `unavailable` follows. Called once.
  void start();

  [[nodiscard]] bool isConnected() const;

  /// False until the first attempt to connect has ended, one way or the other.
  [[nodiscard]] bool isSettled() const { return isSettled_; }

  /// The live connection; an unconnected one while `isConnected` is false. Only asynchronous calls
  /// may be made on it from the main thread. Qt takes it for one to a peer: it knows no
  /// `baseService` and asks the bus for no signals.
  [[nodiscard]] QDBusConnection connection() const;

  /// The connection's own name on the bus; empty while `isConnected` is false.
  [[nodiscard]] const QString& uniqueName() const { return uniqueName_; }

  /// Sends `message` and calls `handler` with the answer or the error, unless `context` is gone.
  void call(const QDBusMessage& message, QObject* context,
            std::function<void(const QDBusPendingCall&)> handler, int timeout = -1) const;

  /// Calls `slot` of `receiver` for the signal from whoever sends it, until the connection ends.
  /// With `argument`, only when that is the signal's first.
  void subscribe(const QString& path, const QString& interface, const QString& signal,
                 const QString& argument, QObject* receiver, const char* slot);

  /// The same for NameOwnerChanged of `service`: `slot` takes its name, old and new owner.
  void subscribeToOwner(const QString& service, QObject* receiver, const char* slot);

 Q_SIGNALS:
  void connected();
  void disconnected();
  /// The first attempt found no bus, or none that answers. Attempts go on.
  void unavailable();

 private Q_SLOTS:
  void attempt();
  void lose();

 private:
  void greeted(const QString& uniqueName);
  void reportUnavailable();

  SessionBusTiming timing_;
  QTimer retry_;
  bool isSettled_ = false;
  QString connectionName_;  ///< Qt's, not the bus's
  QString uniqueName_;
  QDBusConnection connection_{QString()};
};

}  // namespace orvane
