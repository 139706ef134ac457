#include "platform/linux/x11/x11_window_hints.h"

#include <QtGui/QWindow>
#include <array>
#include <cstdint>
#include <cstring>

#include "platform/linux/x11/x11_connection.h"

namespace orvane {

void skipTaskbar(QWindow& window) {
  xcb_connection_t* connection = x11Connection();
  if (connection == nullptr) return;
  const auto atoms = internAtoms(
      connection, {"_NET_WM_STATE", "_NET_WM_STATE_SKIP_TASKBAR", "_NET_WM_STATE_SKIP_PAGER"});
  const xcb_atom_t state = atoms[0];
  const std::array<xcb_atom_t, 2> states = {atoms[1], atoms[2]};
  if (state == 0 || states[0] == 0 || states[1] == 0) return;
  xcb_change_property(connection, XCB_PROP_MODE_APPEND, static_cast<xcb_window_t>(window.winId()),
                      state, XCB_ATOM_ATOM, 32, states.size(), states.data());
}

void setShadowExtents(QWindow& window, int extent) {
  xcb_connection_t* connection = x11Connection();
  if (connection == nullptr || extent <= 0) return;
  const xcb_atom_t name = internAtoms(connection, {"_GTK_FRAME_EXTENTS"}).front();
  if (name == 0) return;
  std::array<std::uint32_t, 4> extents{};
  extents.fill(static_cast<std::uint32_t>(extent));
  xcb_change_property(connection, XCB_PROP_MODE_REPLACE, static_cast<xcb_window_t>(window.winId()),
                      name, XCB_ATOM_CARDINAL, 32, extents.size(), extents.data());
}

void forgetMinimized(QWindow& window) {
  constexpr std::uint32_t words = 9;  // of WM_HINTS, as ICCCM 4.1.2.4 has them
  constexpr std::size_t initialState = 2;
  constexpr std::uint32_t normalState = 1;
  xcb_connection_t* connection = x11Connection();
  if (connection == nullptr) return;
  const auto id = static_cast<xcb_window_t>(window.winId());
  const XcbReply<xcb_get_property_reply_t> reply(xcb_get_property_reply(
      connection,
      xcb_get_property(connection, 0, id, XCB_ATOM_WM_HINTS, XCB_ATOM_WM_HINTS, 0, words),
      nullptr));
  if (!reply || reply->format != 32 || reply->value_len != words) return;
  std::array<std::uint32_t, words> hints{};
  std::memcpy(hints.data(), xcb_get_property_value(reply.get()), sizeof(hints));
  hints[initialState] = normalState;
  xcb_change_property(connection, XCB_PROP_MODE_REPLACE, id, XCB_ATOM_WM_HINTS, XCB_ATOM_WM_HINTS,
                      32, words, hints.data());
}

bool blendsTranslucentWindows() {
  xcb_connection_t* connection = x11Connection();
  if (connection == nullptr) return true;
  // The compositor of the first screen; more than one such screen on a display is history.
  const xcb_atom_t selection = internAtoms(connection, {"_NET_WM_CM_S0"}).front();
  const XcbReply<xcb_get_selection_owner_reply_t> reply(xcb_get_selection_owner_reply(
      connection, xcb_get_selection_owner(connection, selection), nullptr));
  return reply && reply->owner != XCB_NONE;
}

}  // namespace orvane
