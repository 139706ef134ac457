#include "platform/linux/x11/x11_windows.h"

#include <unistd.h>

#include <QtCore/QCoreApplication>
#include <algorithm>
#include <span>
#include <string_view>
#include <utility>

#include "platform/linux/x11/x11_connection.h"

namespace orvane {
namespace {

constexpr int readingsPerWindow = 3;
constexpr std::uint32_t longestList = 8192;
constexpr std::uint32_t longestProperty = 256;

std::string hostName() {
  std::array<char, 256> name{};
  return ::gethostname(name.data(), name.size() - 1) == 0 ? name.data() : "";
}

/// One property, or an empty one when the window is gone or doesn't have it.
class Answer {
 public:
  Answer(xcb_connection_t* connection, xcb_get_property_cookie_t cookie)
      : reply_(xcb_get_property_reply(connection, cookie, nullptr)) {}

  [[nodiscard]] std::string_view text() const {
    if (!reply_ || reply_->format != 8) return {};
    return {static_cast<const char*>(xcb_get_property_value(reply_.get())), reply_->value_len};
  }
  /// The text up to the first zero byte.
  [[nodiscard]] std::string_view word() const { return text().substr(0, text().find('\0')); }
  [[nodiscard]] std::span<const std::uint32_t> numbers() const {
    if (!reply_ || reply_->format != 32) return {};
    return {static_cast<const std::uint32_t*>(xcb_get_property_value(reply_.get())),
            reply_->value_len};
  }

 private:
  XcbReply<xcb_get_property_reply_t> reply_;
};

}  // namespace

X11Windows::X11Windows(xcb_connection_t* connection)
    : connection_(connection), hostName_(hostName()) {
  if (connection_ == nullptr) return;
  root_ = xcb_setup_roots_iterator(xcb_get_setup(connection_)).data->root;
  atoms_ = internAtoms(connection_, {"_NET_CLIENT_LIST", "_NET_SUPPORTING_WM_CHECK", "_NET_WM_PID",
                                     "_GTK_APPLICATION_ID", "_NET_WM_WINDOW_TYPE",
                                     "_NET_WM_WINDOW_TYPE_DOCK", "_NET_WM_WINDOW_TYPE_DESKTOP"});
  QCoreApplication::instance()->installNativeEventFilter(this);
}

/// Qt asks for the property changes of the root window, and gets these events anyway.
bool X11Windows::nativeEventFilter(const QByteArray& type, void* message, qintptr* /*result*/) {
  if (type != "xcb_generic_event_t") return false;
  const auto* event = static_cast<const xcb_generic_event_t*>(message);
  if ((event->response_type & 0x7f) != XCB_PROPERTY_NOTIFY) return false;
  const auto* change = static_cast<const xcb_property_notify_event_t*>(message);
  listIsStale_ = listIsStale_ ||
                 (change->window == root_ &&
                  (change->atom == atoms_[clientList] || change->atom == atoms_[managerCheck]));
  return false;
}

bool X11Windows::update() {
  if (connection_ == nullptr) return false;
  bool changed = std::exchange(listIsStale_, false) && updateList();
  std::vector<std::pair<xcb_window_t, Cookies>> asked;
  for (const auto& [id, listed] : listed_) {
    if (listed.readings < readingsPerWindow) asked.emplace_back(id, request(id));
  }
  for (const auto& [id, cookies] : asked) {
    ListedWindow& listed = listed_[id];
    Description description = takeAnswers(cookies);
    if (id == managerWindow_) description.window.isDesktopPart = true;
    changed = changed || listed.readings == 0 || description != listed.description;
    listed.description = std::move(description);
    ++listed.readings;
  }
  return changed;
}

std::vector<X11Window> X11Windows::windows() const {
  std::vector<X11Window> windows;
  for (const xcb_window_t id : order_) {
    const auto listed = listed_.find(id);
    if (listed == listed_.end() || listed->second.readings == 0) continue;
    if (listed->second.description.isLocal) windows.push_back(listed->second.description.window);
  }
  return windows;
}

/// True when windows are gone.
bool X11Windows::updateList() {
  const auto clients = property(root_, atoms_[clientList], longestList);
  const auto manager = property(root_, atoms_[managerCheck], 1);
  order_ = windowIds(clients);
  const auto check = windowIds(manager);
  managerWindow_ = check.empty() ? 0 : check.front();
  order_.insert(order_.end(), check.begin(), check.end());
  const auto gone = std::erase_if(listed_, [&](const auto& listed) {
    return std::find(order_.begin(), order_.end(), listed.first) == order_.end();
  });
  for (const xcb_window_t id : order_) listed_.try_emplace(id);
  return gone > 0;
}

std::vector<xcb_window_t> X11Windows::windowIds(xcb_get_property_cookie_t cookie) const {
  const Answer answer(connection_, cookie);
  return {answer.numbers().begin(), answer.numbers().end()};
}

xcb_get_property_cookie_t X11Windows::property(xcb_window_t id, xcb_atom_t name,
                                               std::uint32_t words) const {
  return xcb_get_property(connection_, 0, id, name, XCB_ATOM_ANY, 0, words);
}

X11Windows::Cookies X11Windows::request(xcb_window_t id) const {
  return {property(id, atoms_[processId], 1), property(id, XCB_ATOM_WM_CLASS, longestProperty),
          property(id, atoms_[applicationId], longestProperty),
          property(id, atoms_[windowType], longestProperty),
          property(id, XCB_ATOM_WM_CLIENT_MACHINE, longestProperty)};
}

X11Windows::Description X11Windows::takeAnswers(const Cookies& cookies) const {
  const Answer pid(connection_, cookies[0]);
  const Answer classes(connection_, cookies[1]);
  const Answer application(connection_, cookies[2]);
  const Answer types(connection_, cookies[3]);
  const Answer host(connection_, cookies[4]);
  Description description;
  X11Window& window = description.window;
  window.pid = pid.numbers().empty() ? 0 : static_cast<std::int32_t>(pid.numbers()[0]);
  window.instance = classes.word();
  const std::string_view rest =
      classes.text().substr(std::min(window.instance.size() + 1, classes.text().size()));
  window.className = rest.substr(0, rest.find('\0'));
  window.applicationId = application.word();
  window.isDesktopPart = std::any_of(
      types.numbers().begin(), types.numbers().end(),
      [&](std::uint32_t type) { return type == atoms_[dockType] || type == atoms_[desktopType]; });
  // The pid of a program on another machine says nothing here.
  description.isLocal = window.pid > 0 && (host.text().empty() || host.word() == hostName_);
  return description;
}

}  // namespace orvane
