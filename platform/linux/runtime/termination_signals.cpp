#include "platform/linux/runtime/termination_signals.h"

#include <sys/eventfd.h>
#include <unistd.h>

#include <QtCore/QSocketNotifier>
#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>

namespace orvane {
namespace {

constexpr std::array<int, 3> terminationSignals = {SIGTERM, SIGINT, SIGHUP};
constexpr unsigned patienceSeconds = 1;

// A signal handler gets no argument of ours, so what it needs lies here.
std::atomic<int> signalEvent{-1};
static_assert(std::atomic<int>::is_always_lock_free);

void handleSignal(int /*signal*/) {
  const int saved = errno;
  ::eventfd_write(signalEvent.load(), 1);
  ::alarm(patienceSeconds);
  errno = saved;
}

/// Nothing is lost: what is to be kept is on disk as soon as it changes.
void endAtOnce(int /*signal*/) {
  ::_exit(0);
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

// An eventfd and not a signalfd: that needs the signals blocked, and a blocked signal would stay
// blocked in every program we start.
TerminationSignals::TerminationSignals(std::function<void()> handler)
    : event_(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {
  if (!event_.isOpen()) return;
  notifier_ = std::make_unique<QSocketNotifier>(event_.get(), QSocketNotifier::Read);
  QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(),
                   [this, handler = std::move(handler)] {
                     eventfd_t count = 0;
                     ::eventfd_read(event_.get(), &count);
                     handler();
                   });
  signalEvent = event_.get();
  std::signal(SIGALRM, endAtOnce);
  setHandler(handleSignal);
}

TerminationSignals::~TerminationSignals() {
  setHandler(SIG_DFL);
  signalEvent = -1;
}

void TerminationSignals::endSoon() const {
  if (event_.isOpen()) ::alarm(patienceSeconds);
}

}  // namespace orvane
