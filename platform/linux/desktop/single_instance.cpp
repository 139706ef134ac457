#include "platform/linux/desktop/single_instance.h"

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <QtCore/QSocketNotifier>
#include <algorithm>
#include <cstdlib>
#include <utility>

namespace orvane {
namespace {

struct Address {
  sockaddr_un socket{};
  socklen_t length = 0;
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

FileDescriptor makeSocket() {
  return FileDescriptor(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
}

bool belongsToUser(int socket) {
  ucred peer{};
  socklen_t length = sizeof(peer);
  return ::getsockopt(socket, SOL_SOCKET, SO_PEERCRED, &peer, &length) == 0 &&
         peer.uid == ::getuid();
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

bool SingleInstance::handOver() {
  const Address address = abstractAddress(name_);
  const auto* generic = reinterpret_cast<const sockaddr*>(&address.socket);
  // Between the two calls the other instance may end or start; a second round settles that.
  for (int round = 0; round < 2; ++round) {
    FileDescriptor server = makeSocket();
    if (::bind(server.get(), generic, address.length) == 0 && ::listen(server.get(), 4) == 0) {
      socket_ = std::move(server);
      return false;
    }
    const FileDescriptor client = makeSocket();
    if (::connect(client.get(), generic, address.length) == 0) return belongsToUser(client.get());
  }
  return false;
}

void SingleInstance::listen(std::function<void()> handler) {
  showRequested_ = std::move(handler);
  if (!socket_.isOpen()) return;
  notifier_ = std::make_unique<QSocketNotifier>(socket_.get(), QSocketNotifier::Read);
  QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(),
                   [this] { accept(); });
}

void SingleInstance::accept() {
  const FileDescriptor client(::accept4(socket_.get(), nullptr, nullptr, SOCK_CLOEXEC));
  if (client.isOpen() && belongsToUser(client.get()) && showRequested_) showRequested_();
}

}  // namespace orvane
