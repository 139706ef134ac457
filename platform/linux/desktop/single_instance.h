#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <string>

#include "platform/linux/files/file_descriptor.h"

class QSocketNotifier;

namespace orvane {

/// Makes sure that one user runs the program once on one desktop.
///
/// The first instance listens on a socket that vanishes with its process. A later one tells it what
/// it was started for, hands over its right to take the focus, and leaves when it has the answer;
/// it takes the place of one that ends meanwhile. Nothing here prints. QLocalServer is part of Qt's
/// Network, which the panel alone doesn't load. Threads: main thread only.
class SingleInstance {
 public:
  enum class Outcome {
    first,     ///< none runs: this one is to run
    accepted,  ///< the running instance does what is wished
    silent     ///< one runs and doesn't answer; see `problem`
  };

  /// `session` tells the user's desktops apart, for example the display's name.
  explicit SingleInstance(const std::string& session);
  SingleInstance(const SingleInstance&) = delete;
  SingleInstance& operator=(const SingleInstance&) = delete;
  ~SingleInstance();

  /// Tells the running instance `wish`, a letter of the program's. Blocks until that answers or
  /// ends, at most for `patience`.
  [[nodiscard]] Outcome handOver(char wish,
                                 std::chrono::milliseconds patience = std::chrono::seconds(5));

  /// Why the running instance is silent, as one line.
  [[nodiscard]] std::string problem() const;

  /// Calls `handler` with the wish of each later instance. Needs the event loop.
  void listen(std::function<void(char wish)> handler);

 private:
  using Deadline = std::chrono::steady_clock::time_point;
  enum class Told { accepted, lost, foreign, silent };

  [[nodiscard]] Told tell(char wish, Deadline deadline);
  void accept();
  void answer(int client);

  std::string name_;
  FileDescriptor socket_;
  int runningPid_ = 0;  ///< 0 while unknown
  std::unique_ptr<QSocketNotifier> notifier_;
  std::function<void(char)> wished_;
};

/// The name of the desktop this process was started on.
[[nodiscard]] std::string desktopSessionName();

}  // namespace orvane
