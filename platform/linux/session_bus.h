#pragma once

#include <QtCore/QObject>
#include <QtDBus/QDBusConnection>

#include <memory>

namespace orvane {

/// The user's session bus, connected without ever blocking the main thread.
///
/// The connection is made on a thread of its own. Without a bus, and after losing it, the
/// connection is tried again every few seconds. Threads: main thread only; the signals come from
/// the event loop.
class SessionBus : public QObject {
  Q_OBJECT

 public:
  explicit SessionBus(QObject* parent = nullptr);
  ~SessionBus() override;

  /// Starts connecting; `connected` or `unavailable` follows. Called once.
  void start();

  [[nodiscard]] bool isConnected() const;

  /// The live connection; an unconnected one while `isConnected` is false. Only asynchronous calls
  /// may be made on it from the main thread.
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
