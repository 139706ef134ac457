#include "platform/linux/x11/x11_panels.h"

#include <algorithm>
#include <span>

#include "platform/linux/x11/x11_connection.h"

namespace orvane {
namespace {

constexpr std::uint32_t longestList = 4096;

/// A property of 32-bit values; none where it is missing.
std::vector<std::uint32_t> numbers(xcb_connection_t* connection, xcb_window_t window,
                                   xcb_atom_t name) {
  const XcbReply<xcb_get_property_reply_t> reply(xcb_get_property_reply(
      connection, xcb_get_property(connection, 0, window, name, XCB_ATOM_ANY, 0, longestList),
      nullptr));
  if (!reply || reply->format != 32) return {};
  const std::span values(static_cast<const std::uint32_t*>(xcb_get_property_value(reply.get())),
                         reply->value_len);
  return {values.begin(), values.end()};
}

QRect frameOf(xcb_connection_t* connection, xcb_window_t window, xcb_window_t root) {
  const auto geometry = xcb_get_geometry(connection, window);
  const auto place = xcb_translate_coordinates(connection, window, root, 0, 0);
  const XcbReply<xcb_get_geometry_reply_t> size(
      xcb_get_geometry_reply(connection, geometry, nullptr));
  const XcbReply<xcb_translate_coordinates_reply_t> corner(
      xcb_translate_coordinates_reply(connection, place, nullptr));
  return size && corner ? QRect(corner->dst_x, corner->dst_y, size->width, size->height) : QRect();
}

}  // namespace

QList<QRect> x11PanelFrames() {
  xcb_connection_t* connection = x11Connection();
  if (connection == nullptr) return {};
  const auto atoms = internAtoms(
      connection, {"_NET_CLIENT_LIST", "_NET_WM_WINDOW_TYPE", "_NET_WM_WINDOW_TYPE_DOCK"});
  const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
  QList<QRect> frames;
  for (const xcb_window_t window : numbers(connection, root, atoms[0])) {
    const auto types = numbers(connection, window, atoms[1]);
    if (std::find(types.begin(), types.end(), atoms[2]) == types.end()) continue;
    const QRect frame = frameOf(connection, window, root);
    if (!frame.isEmpty()) frames.append(frame);
  }
  return frames;
}

}  // namespace orvane
