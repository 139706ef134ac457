#pragma once

#include <QtCore/QCoreApplication>
#include <QtCore/QDeadlineTimer>
#include <QtCore/QEventLoop>

namespace orvane {

/// Runs the event loop until `holds()`, for ten seconds at most; whether it holds.
template <typename Condition>
bool waitUntil(Condition holds) {
  const QDeadlineTimer deadline(10'000);
  while (!holds() && !deadline.hasExpired()) {
    QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents, 50);
  }
  return holds();
}

}  // namespace orvane
