#include "platform/linux/desktop/single_instance.h"

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <QtCore/QSocketNotifier>
#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <fstream>
#include <optional>
#include <utility>

#include "platform/linux/bus/activation_token.h"

namespace orvane {
namespace {

struct Address {
  sockaddr_un socket{};
  socklen_t length = 0;

  [[nodiscard]] const sockaddr* generic() const {
    return reinterpret_cast<const sockaddr*>(&socket);
  }
};

/// A name of the kernel's own, without a file: it is free again as soon as its process is gone.
Address abstractAddress(const std::string& name) {
  Address address;
  address.socket.sun_family = AF_UNIX;
  const std::size_t length = std::min(name.size(), sizeof(address.socket.sun_path) - 1);
  std::copy_n(name.begin(), length, address.socket.sun_path + 1);
  address.length = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + 1 + length);
  return address;
}

// Of packets: a message comes whole.
FileDescriptor makeSocket() {
  return FileDescriptor(::socket(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
}

/// Whose process is at the other end; none when the kernel doesn't say.
std::optional<ucred> peerOf(int socket) {
  ucred peer{};
  socklen_t length = sizeof(peer);
  if (::getsockopt(socket, SOL_SOCKET, SO_PEERCRED, &peer, &length) != 0) return std::nullopt;
  return peer;
}

bool belongsToUser(int socket) {
  const auto peer = peerOf(socket);
  return peer && peer->uid == ::getuid();
}

/// The right to take the focus that a launcher gave this process; empty without one.
std::string ownActivationToken() {
  for (const char* variable : {"XDG_ACTIVATION_TOKEN", "DESKTOP_STARTUP_ID"}) {
    const char* value = std::getenv(variable);
    if (value != nullptr && *value != '\0') return value;
  }
  return {};
}

/// Field 3 of /proc/PID/stat, after the name in brackets; a blank when there is no such process.
char processState(int pid) {
  std::ifstream file("/proc/" + std::to_string(pid) + "/stat");
  std::string text;
  std::getline(file, text);
  const std::size_t bracket = text.rfind(')');
  return bracket == std::string::npos || bracket + 2 >= text.size() ? ' ' : text[bracket + 2];
}

/// Waits until `socket` has something to read; false when the deadline comes first.
bool waitForAnswer(int socket, std::chrono::steady_clock::time_point deadline) {
  for (;;) {
    const auto left =
        std::chrono::ceil<std::chrono::milliseconds>(deadline - std::chrono::steady_clock::now());
    pollfd state{socket, POLLIN, 0};
    const int ready = ::poll(&state, 1, std::max(0, static_cast<int>(left.count())));
    if (ready >= 0 || errno != EINTR) return ready > 0;
  }
}

}  // namespace

std::string desktopSessionName() {
  for (const char* variable : {"WAYLAND_DISPLAY", "DISPLAY"}) {
    const char* value = std::getenv(variable);
    if (value != nullptr && *value != '\0') return value;
  }
  return "none";
}

SingleInstance::SingleInstance(const std::string& session)
    : name_("orvane/" + std::to_string(::getuid()) + "/" + session) {}

SingleInstance::~SingleInstance() = default;

SingleInstance::Outcome SingleInstance::handOver(char wish, std::chrono::milliseconds patience) {
  constexpr int queueLength = 64;
  constexpr int pauseMilliseconds = 20;
  const Deadline deadline = std::chrono::steady_clock::now() + patience;
  const Address address = abstractAddress(name_);
  // Whoever has the name may end at any moment, also with our message unread.
  do {
    FileDescriptor server = makeSocket();
    if (::bind(server.get(), address.generic(), address.length) == 0 &&
        ::listen(server.get(), queueLength) == 0) {
      socket_ = std::move(server);
      return Outcome::first;
    }
    switch (tell(wish, deadline)) {
      case Told::accepted:
        return Outcome::accepted;
      case Told::foreign:
        return Outcome::first;
      case Told::lost:
        ::poll(nullptr, 0, pauseMilliseconds);
        break;
      case Told::silent:
        break;
    }
  } while (std::chrono::steady_clock::now() < deadline);
  return Outcome::silent;
}

SingleInstance::Told SingleInstance::tell(char wish, Deadline deadline) {
  const Address address = abstractAddress(name_);
  const FileDescriptor client = makeSocket();
  if (::connect(client.get(), address.generic(), address.length) != 0) return Told::lost;
  const auto peer = peerOf(client.get());
  if (!peer || peer->uid != ::getuid()) return Told::foreign;
  runningPid_ = peer->pid;
  const std::string message = wish + ownActivationToken();
  if (::send(client.get(), message.data(), message.size(), MSG_NOSIGNAL) < 0) return Told::lost;
  if (!waitForAnswer(client.get(), deadline)) return Told::silent;
  char answer = 0;
  return ::recv(client.get(), &answer, 1, 0) == 1 ? Told::accepted : Told::lost;
}

std::string SingleInstance::problem() const {
  if (runningPid_ == 0) return "orvane: it runs already, and doesn't answer";
  const std::string pid = std::to_string(runningPid_);
  const std::string running = "orvane: it runs already as process " + pid;
  return processState(runningPid_) == 'T' ? running + ", which is stopped: kill -CONT " + pid
                                          : running + ", which doesn't answer";
}

void SingleInstance::listen(std::function<void(char)> handler) {
  wished_ = std::move(handler);
  if (!socket_.isOpen()) return;
  notifier_ = std::make_unique<QSocketNotifier>(socket_.get(), QSocketNotifier::Read);
  QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(),
                   [this] { accept(); });
}

void SingleInstance::accept() {
  constexpr qsizetype mostClients = 16;  // that say nothing
  auto client = std::make_shared<FileDescriptor>(
      ::accept4(socket_.get(), nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK));
  if (!client->isOpen() || !belongsToUser(client->get())) return;
  if (notifier_->children().size() >= mostClients) return;
  auto* reader = new QSocketNotifier(client->get(), QSocketNotifier::Read, notifier_.get());
  QObject::connect(reader, &QSocketNotifier::activated, reader, [this, reader, client] {
    reader->setEnabled(false);
    reader->deleteLater();
    answer(client->get());
  });
}

void SingleInstance::answer(int client) {
  std::array<char, 2048> message{};
  const ssize_t length = ::recv(client, message.data(), message.size(), MSG_TRUNC);
  if (length < 1) return;
  if (static_cast<std::size_t>(length) <= message.size())
    keepActivationToken(QByteArray(message.data() + 1, length - 1));
  const char wish = message.front();
  if (::send(client, &wish, 1, MSG_NOSIGNAL) == 1) wished_(wish);
}

}  // namespace orvane
