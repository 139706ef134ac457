#include "platform/linux/x11_window_hints.h"

#include <xcb/xcb.h>

#include <QtGui/QGuiApplication>
#include <QtGui/QWindow>
#include <array>
#include <cstdlib>
#include <memory>
#include <string_view>

namespace orvane {
namespace {

template <typename Reply>
using ReplyPointer = std::unique_ptr<Reply, decltype(&std::free)>;

xcb_connection_t* x11Connection() {
  const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
  return x11 == nullptr ? nullptr : x11->connection();
}

/// The atoms of the names, asked for in one go; 0 for one that can't be had.
template <std::size_t count>
std::array<xcb_atom_t, count> atoms(xcb_connection_t* connection,
                                    const std::array<std::string_view, count>& names) {
  std::array<xcb_intern_atom_cookie_t, count> cookies{};
  for (std::size_t i = 0; i < count; ++i) {
    cookies[i] =
        xcb_intern_atom(connection, 0, static_cast<uint16_t>(names[i].size()), names[i].data());
  }
  std::array<xcb_atom_t, count> result{};
  for (std::size_t i = 0; i < count; ++i) {
    const ReplyPointer<xcb_intern_atom_reply_t> reply(
        xcb_intern_atom_reply(connection, cookies[i], nullptr), &std::free);
    if (reply) result[i] = reply->atom;
  }
  return result;
}

}  // namespace

void skipTaskbar(QWindow& window) {
  xcb_connection_t* connection = x11Connection();
  if (connection == nullptr) return;
  const auto [state, taskbar, pager] = atoms<3>(
      connection, {"_NET_WM_STATE", "_NET_WM_STATE_SKIP_TASKBAR", "_NET_WM_STATE_SKIP_PAGER"});
  if (state == 0 || taskbar == 0 || pager == 0) return;
  const std::array<xcb_atom_t, 2> states = {taskbar, pager};
  xcb_change_property(connection, XCB_PROP_MODE_APPEND, static_cast<xcb_window_t>(window.winId()),
                      state, XCB_ATOM_ATOM, 32, states.size(), states.data());
}

bool blendsTranslucentWindows() {
  xcb_connection_t* connection = x11Connection();
  if (connection == nullptr) return true;
  // The compositor of the first screen; more than one such screen on a display is history.
  const auto [selection] = atoms<1>(connection, {"_NET_WM_CM_S0"});
  const ReplyPointer<xcb_get_selection_owner_reply_t> reply(
      xcb_get_selection_owner_reply(connection, xcb_get_selection_owner(connection, selection),
                                    nullptr),
      &std::free);
  return reply && reply->owner != XCB_NONE;
}

}  // namespace orvane
