#include "platform/linux/bus/bus_address.h"

#include <poll.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <optional>

#include "platform/linux/files/file_descriptor.h"
#include "platform/linux/files/text_pieces.h"

namespace orvane {
namespace {

using SteadyClock = std::chrono::steady_clock;

std::optional<std::string> unescape(std::string_view value) {
  std::string result;
  for (std::size_t i = 0; i < value.size(); ++i) {
    if (value[i] != '%') {
      result += value[i];
      continue;
    }
    if (i + 2 >= value.size()) return std::nullopt;
    const auto byte = hexByte(value[i + 1], value[i + 2]);
    if (!byte) return std::nullopt;
    result += *byte;
    i += 2;
  }
  return result;
}

constexpr std::string_view hexDigits = "0123456789abcdef";

std::string hexPair(char character) {
  const auto byte = static_cast<unsigned char>(character);
  return {hexDigits[byte >> 4], hexDigits[byte & 15]};
}

std::string escape(std::string_view value) {
  constexpr std::string_view plain =
      "-_/.0123456789abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ";
  std::string result;
  for (const char character : value) {
    if (plain.find(character) != std::string_view::npos) {
      result += character;
    } else {
      result += '%';
      result += hexPair(character);
    }
  }
  return result;
}

/// The parts of `text` between separators, without empty ones.
std::string runtimeSocketPath() {
  const char* directory = std::getenv("XDG_RUNTIME_DIR");
  if (directory == nullptr || *directory != '/') return {};
  return std::string(directory) + "/bus";
}

std::optional<BusAddress> parseUnixAddress(std::string_view entry, std::string_view parameters) {
  BusAddress address{std::string(entry), {}, false};
  for (const std::string_view parameter : split(parameters, ',')) {
    const std::size_t equals = parameter.find('=');
    if (equals == std::string_view::npos) return std::nullopt;
    const std::string_view key = parameter.substr(0, equals);
    const auto value = unescape(parameter.substr(equals + 1));
    if (!value) return std::nullopt;
    if (key == "path" || key == "abstract") {
      address.socketPath = *value;
      address.abstractSocket = key == "abstract";
    }
  }
  if (address.socketPath.empty()) return std::nullopt;
  return address;
}

/// One exchange of bytes with a bus, with a deadline and a way out.
class Greeting {
 public:
  Greeting(const BusAddress& address, int cancelDescriptor, std::chrono::milliseconds timeout)
      : socket_(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0)),
        cancelDescriptor_(cancelDescriptor),
        deadline_(SteadyClock::now() + timeout) {
    connected_ = connect(address);
  }

  [[nodiscard]] bool isConnected() const { return connected_; }

  [[nodiscard]] bool send(std::string_view bytes) const {
    return ::send(socket_.get(), bytes.data(), bytes.size(), MSG_NOSIGNAL) ==
           static_cast<ssize_t>(bytes.size());
  }

  /// Whatever comes next; empty at the end, at the deadline and when cancelled.
  [[nodiscard]] std::string receive() const {
    if (!waitReadable()) return {};
    char buffer[512];
    const ssize_t count = ::recv(socket_.get(), buffer, sizeof buffer, 0);
    return count > 0 ? std::string(buffer, static_cast<std::size_t>(count)) : std::string();
  }

 private:
  [[nodiscard]] bool connect(const BusAddress& address) const {
    sockaddr_un name{};
    name.sun_family = AF_UNIX;
    const std::size_t offset = address.abstractSocket ? 1 : 0;
    if (offset + address.socketPath.size() >= sizeof name.sun_path) return false;
    std::memcpy(name.sun_path + offset, address.socketPath.data(), address.socketPath.size());
    const auto length =
        static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + address.socketPath.size() + 1);
    return socket_.isOpen() &&
           ::connect(socket_.get(), reinterpret_cast<const sockaddr*>(&name), length) == 0;
  }

  [[nodiscard]] bool waitReadable() const {
    for (;;) {
      const auto left =
          std::chrono::duration_cast<std::chrono::milliseconds>(deadline_ - SteadyClock::now());
      if (left.count() <= 0) return false;
      pollfd descriptors[] = {{socket_.get(), POLLIN, 0}, {cancelDescriptor_, POLLIN, 0}};
      const int ready = ::poll(descriptors, 2, static_cast<int>(left.count()));
      if (ready < 0 && errno == EINTR) continue;
      return ready > 0 && descriptors[1].revents == 0;
    }
  }

  FileDescriptor socket_;
  int cancelDescriptor_;
  SteadyClock::time_point deadline_;
  bool connected_ = false;
};

void appendNumber(std::string& bytes, std::size_t number) {
  for (int shift = 0; shift < 32; shift += 8) {
    bytes += static_cast<char>((number >> shift) & 0xff);
  }
}

void pad(std::string& bytes) {
  bytes.resize((bytes.size() + 7) / 8 * 8);
}

void appendField(std::string& fields, char code, char type, std::string_view value) {
  pad(fields);
  fields += {code, '\1', type, '\0'};
  appendNumber(fields, value.size());
  fields += value;
  fields += '\0';
}

/// The first message of every client, org.freedesktop.DBus.Hello(), in little-endian form.
std::string helloMessage() {
  std::string fields;
  appendField(fields, 1, 'o', "/org/freedesktop/DBus");
  appendField(fields, 2, 's', "org.freedesktop.DBus");
  appendField(fields, 3, 's', "Hello");
  appendField(fields, 6, 's', "org.freedesktop.DBus");
  std::string message{'l', '\1', '\0', '\1'};
  appendNumber(message, 0);
  appendNumber(message, 1);
  appendNumber(message, fields.size());
  message += fields;
  pad(message);
  return message;
}

std::string externalAuthentication() {
  std::string line("\0AUTH EXTERNAL ", 15);
  for (const char character : std::to_string(::getuid())) line += hexPair(character);
  return line + "\r\n";
}

}  // namespace

std::vector<BusAddress> parseBusAddresses(std::string_view list) {
  std::vector<BusAddress> addresses;
  for (const std::string_view entry : split(list, ';')) {
    const std::size_t colon = entry.find(':');
    if (colon == std::string_view::npos) continue;
    const std::string_view transport = entry.substr(0, colon);
    if (transport == "autolaunch" || transport.empty()) continue;
    if (transport != "unix") {
      addresses.push_back({std::string(entry), {}, false});
    } else if (auto address = parseUnixAddress(entry, entry.substr(colon + 1))) {
      addresses.push_back(std::move(*address));
    }
  }
  return addresses;
}

std::vector<BusAddress> sessionBusAddresses() {
  const char* list = std::getenv("DBUS_SESSION_BUS_ADDRESS");
  if (list != nullptr && *list != '\0') return parseBusAddresses(list);
  const std::string path = runtimeSocketPath();
  struct stat status {};
  if (path.empty() || ::stat(path.c_str(), &status) != 0 || !S_ISSOCK(status.st_mode)) return {};
  std::string text = "unix:path=";
  text += escape(path);
  return {{text, path, false}};
}

bool busAnswers(const BusAddress& address, int cancelDescriptor,
                std::chrono::milliseconds timeout) {
  if (address.socketPath.empty()) return true;
  const Greeting greeting(address, cancelDescriptor, timeout);
  if (!greeting.isConnected() || !greeting.send(externalAuthentication())) return false;
  const std::string answer = greeting.receive();
  if (!answer.starts_with("OK")) return !answer.empty();
  return greeting.send(std::string("BEGIN\r\n").append(helloMessage())) &&
         !greeting.receive().empty();
}

}  // namespace orvane
