#pragma once

#include <QtCore/QObject>
#include <QtCore/QTimer>
#include <QtDBus/QDBusContext>
#include <functional>
#include <utility>

namespace orvane {

/// An object to register on the bus: its children are adaptors, which answer the calls and learn
/// from the context who called.
class BusExport : public QObject, public QDBusContext {
  Q_OBJECT

 public:
  /// Runs `action` from the event loop a moment later. While two wait, more are dropped: a flood of
  /// calls keeps the loop from nothing.
  void runSoon(std::function<void()> action) {
    constexpr int mostWaiting = 2;
    constexpr int delayMilliseconds = 1;  // without one the loop would run it among the calls
    if (waiting_ == mostWaiting) return;
    ++waiting_;
    QTimer::singleShot(delayMilliseconds, this, [this, run = std::move(action)] {
      --waiting_;
      run();
    });
  }

 private:
  int waiting_ = 0;
};

}  // namespace orvane
