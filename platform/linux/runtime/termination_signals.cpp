#include "platform/linux/runtime/termination_signals.h"

#include <fcntl.h>
#include <unistd.h>

#include <QtCore/QSocketNotifier>
#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>

namespace orvane {
namespace {

constexpr std::array<int, 3> terminationSignals = {SIGTERM, SIGINT, SIGHUP};

// A signal handler gets no argument of ours, so what it needs lies here.
std::atomic<int> signalPipe{-1};
static_assert(std::atomic<int>::is_always_lock_free);

void handleSignal(int /*signal*/) {
  const int saved = errno;
  const char byte = 1;
  [[maybe_unused]] const auto written = ::write(signalPipe.load(), &byte, 1);
  errno = saved;
}

/// A signal that whoever started the program wants ignored (nohup does) stays ignored.
void setHandler(void (*handler)(int)) {
  struct sigaction action {};
  action.sa_handler = handler;
  action.sa_flags = SA_RESTART;
  for (const int signal : terminationSignals) {
    struct sigaction present {};
    if (::sigaction(signal, nullptr, &present) == 0 && present.sa_handler == SIG_IGN) continue;
    ::sigaction(signal, &action, nullptr);
  }
}

}  // namespace

// A pipe and not a signal descriptor: that needs the signals blocked, and a blocked signal would
// stay blocked in every program we start.
TerminationSignals::TerminationSignals(std::function<void()> handler) {
  std::array<int, 2> ends{};
  if (::pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) != 0) return;
  readEnd_ = FileDescriptor(ends[0]);
  writeEnd_ = FileDescriptor(ends[1]);
  notifier_ = std::make_unique<QSocketNotifier>(readEnd_.get(), QSocketNotifier::Read);
  QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(),
                   [this, handler = std::move(handler)] {
                     std::array<char, 16> bytes{};
                     [[maybe_unused]] const auto count =
                         ::read(readEnd_.get(), bytes.data(), bytes.size());
                     handler();
                   });
  signalPipe = writeEnd_.get();
  setHandler(handleSignal);
}

TerminationSignals::~TerminationSignals() {
  setHandler(SIG_DFL);
  signalPipe = -1;
}

}  // namespace orvane
