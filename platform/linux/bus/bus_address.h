#pragma once

#include <chrono>
#include <string>
#include <string_view>
#include <vector>

namespace orvane {

/// One entry of a D-Bus address list.
struct BusAddress {
  std::string text;        ///< as written, for the D-Bus library
  std::string socketPath;  ///< of a unix socket, unescaped; empty for other transports
  bool abstractSocket = false;

  bool operator==(const BusAddress&) const = default;
};

/// The entries of `list` that a client can connect to, in order. Left out: entries that start a
/// bus of their own ("autolaunch:") and malformed ones.
[[nodiscard]] std::vector<BusAddress> parseBusAddresses(std::string_view list);

/// Where the user's session bus is, from DBUS_SESSION_BUS_ADDRESS, else the socket "bus" in
/// XDG_RUNTIME_DIR when there is one; empty when there is no bus. Never starts one.
[[nodiscard]] std::vector<BusAddress> sessionBusAddresses();

/// True when the bus at `address` answers a client's greeting within `timeout`; also
/// for transports other than unix sockets, which aren't tried. False as soon as `cancelDescriptor`
/// becomes readable (-1: nothing cancels). Blocks, on the main thread for a fraction of a second at
/// most.
[[nodiscard]] bool busAnswers(const BusAddress& address, int cancelDescriptor,
                              std::chrono::milliseconds timeout);

}  // namespace orvane
