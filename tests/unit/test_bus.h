#pragma once

#include <signal.h>

#include <QtCore/QProcess>
#include <functional>
#include <string>

#include "tests/unit/test_files.h"

namespace orvane {

/// A message bus of the test's own that can start no services.
class TestBus {
 public:
  TestBus() { start(); }
  ~TestBus() { stop(); }
  TestBus(const TestBus&) = delete;
  TestBus& operator=(const TestBus&) = delete;

  /// Starts the daemon (again), always at the same address.
  void start();
  void stop();

  /// Ends the daemon before it does anything else.
  void kill();

  /// Leaves the daemon running but deaf, until `resume`.
  void pause() const { ::kill(static_cast<pid_t>(daemon_.processId()), SIGSTOP); }
  void resume() const { ::kill(static_cast<pid_t>(daemon_.processId()), SIGCONT); }

  [[nodiscard]] std::string address() const { return "unix:path=" + socketPath(); }
  [[nodiscard]] std::string socketPath() const { return directory_.path("bus"); }

 private:
  TestDirectory directory_;
  QProcess daemon_;
};

/// Runs the event loop until `condition` holds; false when it doesn't within ten seconds.
[[nodiscard]] bool waitUntil(const std::function<bool()>& condition);

/// Runs the event loop for that long.
void runEventLoopFor(int milliseconds);

}  // namespace orvane
