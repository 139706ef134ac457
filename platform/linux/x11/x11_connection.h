#pragma once

#include <xcb/xcb.h>

#include <cstdlib>
#include <memory>
#include <string_view>
#include <vector>

namespace orvane {

struct FreeReply {
  void operator()(void* reply) const {
    std::free(reply);  // NOLINT(cppcoreguidelines-owning-memory): xcb's replies come from malloc
  }
};
template <typename Reply>
using XcbReply = std::unique_ptr<Reply, FreeReply>;

/// Qt's own connection to the X server; null when Qt's platform isn't xcb. Main thread only.
[[nodiscard]] xcb_connection_t* x11Connection();

/// The atoms of these names, asked for in one round trip; 0 for one that can't be had.
[[nodiscard]] std::vector<xcb_atom_t> internAtoms(xcb_connection_t* connection,
                                                  const std::vector<std::string_view>& names);

}  // namespace orvane
