#include "platform/linux/x11/x11_connection.h"

#include <QtGui/QGuiApplication>

namespace orvane {

xcb_connection_t* x11Connection() {
  if (qGuiApp == nullptr) return nullptr;
  const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
  return x11 == nullptr ? nullptr : x11->connection();
}

std::vector<xcb_atom_t> internAtoms(xcb_connection_t* connection,
                                    const std::vector<std::string_view>& names) {
  std::vector<xcb_intern_atom_cookie_t> cookies;
  cookies.reserve(names.size());
  for (const std::string_view name : names) {
    cookies.push_back(
        xcb_intern_atom(connection, 0, static_cast<uint16_t>(name.size()), name.data()));
  }
  std::vector<xcb_atom_t> atoms;
  atoms.reserve(names.size());
  for (const auto cookie : cookies) {
    const XcbReply<xcb_intern_atom_reply_t> reply(
        xcb_intern_atom_reply(connection, cookie, nullptr));
    atoms.push_back(reply ? reply->atom : 0);
  }
  return atoms;
}

}  // namespace orvane
