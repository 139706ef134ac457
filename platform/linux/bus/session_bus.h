#pragma once

#include <QtCore/QObject>
#include <QtDBus/QDBusConnection>

#include <chrono>
#include <memory>

namespace orvane {

/// How patient a `SessionBus` is.
struct SessionBusTiming {
  std::chrono::milliseconds retryInterval{5000};  ///< between attempts while there is no bus
  std::chrono::milliseconds answerTimeout{5000};  ///< for a bus to answer an attempt
};

/// Makes the toolkit do without the session bus when that accepts and says nothing. Call it before
/// the first window: the toolkit's bridge to assistive technology connects by itself then, and
/// would wait for ever. Takes as long as a bus that lives needs for an answer, at most 0.3 s.
void keepToolkitOffSilentBus();

/// The user's session bus, connected without ever blocking the main thread.
///
/// The connection is made on a thread of its own. Without a bus, and after losing it, the
/// connection is tried again every few seconds. Threads: main thread only; the signals come from
/// the event loop.
class SessionBus : public QObject {
  Q_OBJECT

 public:
  explicit SessionBus(QObject* parent = nullptr, SessionBusTiming timing = {});
  ~SessionBus() override;

  /// Starts connecting; `connected` or `unavailable` follows. Called once.
  void start();

  [[nodiscard]] bool isConnected() const;

  /// False until the first attempt to connect has ended, one way or the other.
  [[nodiscard]] bool isSettled() const;

  /// The live connection; an unconnected one while `isConnected` is false. Only asynchronous calls
  /// may be made on it from the main thread. Subscriptions too: `connect` with a well-known service
  /// name waits for the bus to tell its owner, so subscribe with an empty service name instead.
  [[nodiscard]] QDBusConnection connection() const;

 Q_SIGNALS:
  void connected();
  void disconnected();
  /// The first attempt found no bus. Attempts go on.
  void unavailable();

 private:
  class Private;
  std::unique_ptr<Private> d_;
};

}  // namespace orvane
