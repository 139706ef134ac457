#pragma once

#include <functional>
#include <memory>

#include "platform/linux/files/file_descriptor.h"

class QSocketNotifier;

namespace orvane {

/// Turns SIGTERM, SIGINT and SIGHUP into a call from the event loop, so that the program ends the
/// way it ends for the user; a program that is still there a second later ends at once. Those that
/// were ignored when the program started stay ignored. One object at a time. Threads: main thread
/// only.
class TerminationSignals {
 public:
  explicit TerminationSignals(std::function<void()> handler);
  TerminationSignals(const TerminationSignals&) = delete;
  TerminationSignals& operator=(const TerminationSignals&) = delete;
  /// Gives the signals their usual meaning back.
  ~TerminationSignals();

  /// The program ends the way it does for the user, and at once where that takes over a second: a
  /// thread may wait for the kernel.
  void endSoon() const;

 private:
  FileDescriptor event_;
  std::unique_ptr<QSocketNotifier> notifier_;
};

}  // namespace orvane
