#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/linux/files/file_descriptor.h"

class QSocketNotifier;

namespace orvane {

/// Makes sure that one user runs the program once on one desktop.
///
/// The first instance listens on a socket that vanishes with its process; a later one finds it,
/// asks it to show itself and can leave. Nothing here blocks or prints. QLocalServer is part of
/// Qt's Network, which the panel alone doesn't load. Threads: main thread only.
class SingleInstance {
 public:
  /// `session` tells the user's desktops apart, for example the display's name.
  explicit SingleInstance(const std::string& session);
  SingleInstance(const SingleInstance&) = delete;
  SingleInstance& operator=(const SingleInstance&) = delete;
  ~SingleInstance();

  /// Asks the running instance to show itself; false when there is none, and this one is to run.
  [[nodiscard]] bool handOver();

  /// Calls `handler` each time a later instance hands over. Needs the event loop.
  void listen(std::function<void()> handler);

 private:
  void accept();

  std::string name_;
  FileDescriptor socket_;
  std::unique_ptr<QSocketNotifier> notifier_;
  std::function<void()> showRequested_;
};

/// The name of the desktop this process was started on.
[[nodiscard]] std::string desktopSessionName();

}  // namespace orvane
