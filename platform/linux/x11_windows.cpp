#include "platform/linux/x11_windows.h"

#include <poll.h>
#include <unistd.h>
#include <xcb/xcb.h>
#include <xcb/xcbext.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <span>
#include <string_view>
#include <system_error>
#include <thread>
#include <utility>

namespace orvane {
namespace {

using Clock = std::chrono::steady_clock;

/// How long a server may keep the main thread waiting.
constexpr std::chrono::milliseconds patience{50};
constexpr int readingsPerWindow = 3;
constexpr std::uint32_t mostWords = 8192;

struct Free {
  void operator()(void* memory) const {
    std::free(memory);  // NOLINT(cppcoreguidelines-owning-memory): replies come from malloc
  }
};
template <typename Type>
using Owned = std::unique_ptr<Type, Free>;

std::string hostName() {
  std::array<char, 256> name{};
  return ::gethostname(name.data(), name.size() - 1) == 0 ? name.data() : "";
}

}  // namespace

/// One property, or an empty one when the window is gone or doesn't have it.
struct X11Windows::Answer {
  Owned<xcb_get_property_reply_t> reply;

  [[nodiscard]] std::string_view text() const {
    if (!reply || reply->format != 8) return {};
    return {static_cast<const char*>(xcb_get_property_value(reply.get())), reply->value_len};
  }
  [[nodiscard]] std::span<const std::uint32_t> numbers() const {
    if (!reply || reply->format != 32) return {};
    return {static_cast<const std::uint32_t*>(xcb_get_property_value(reply.get())),
            reply->value_len};
  }
};

void X11Windows::Disconnect::operator()(xcb_connection_t* connection) const {
  xcb_disconnect(connection);
}

X11Windows::X11Windows(std::string display) : display_(std::move(display)), hostName_(hostName()) {}

X11Windows::~X11Windows() = default;

bool X11Windows::update() {
  if (!display_.empty()) startConnecting();
  if (connecting_.valid()) finishConnecting();
  if (!connection_) return false;
  bool changed = false;
  const auto deadline = Clock::now() + patience;
  takeEvents();
  requestYoungOnes();
  do {
    if (listIsStale_ && !listRequest_) requestList();
    changed = takeAnswers() || changed;
    if (!isWaiting() || !waitUntil(deadline)) break;
    takeEvents();
  } while (true);
  return xcb_connection_has_error(connection_.get()) != 0 ? disconnect() : changed;
}

std::vector<X11Window> X11Windows::windows() const {
  std::vector<X11Window> windows;
  for (const std::uint32_t id : order_) {
    const auto listed = listed_.find(id);
    if (listed == listed_.end() || !listed->second.known) continue;
    if (listed->second.known->isLocal) windows.push_back(listed->second.known->window);
  }
  return windows;
}

X11Windows::Server X11Windows::openServer(const std::string& display) {
  Server server;
  int screen = 0;
  server.connection.reset(xcb_connect(display.c_str(), &screen));
  if (xcb_connection_has_error(server.connection.get()) != 0) return {};
  auto screens = xcb_setup_roots_iterator(xcb_get_setup(server.connection.get()));
  for (; screen > 0 && screens.rem > 1; --screen) xcb_screen_next(&screens);
  if (screens.rem == 0) return {};
  server.root = screens.data->root;
  const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
  xcb_change_window_attributes(server.connection.get(), server.root, XCB_CW_EVENT_MASK, &events);
  internAtoms(server);
  return server;
}

void X11Windows::internAtoms(Server& server) {
  constexpr std::array<std::string_view, atomCount> names{
      "_NET_CLIENT_LIST",         "_NET_WM_PID",
      "_GTK_APPLICATION_ID",      "_NET_WM_WINDOW_TYPE",
      "_NET_WM_WINDOW_TYPE_DOCK", "_NET_WM_WINDOW_TYPE_DESKTOP"};
  xcb_connection_t* const connection = server.connection.get();
  std::array<xcb_intern_atom_cookie_t, atomCount> cookies{};
  std::transform(names.begin(), names.end(), cookies.begin(), [&](std::string_view name) {
    return xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(name.size()), name.data());
  });
  for (std::size_t i = 0; i < cookies.size(); ++i) {
    const Owned<xcb_intern_atom_reply_t> reply(
        xcb_intern_atom_reply(connection, cookies[i], nullptr));
    server.atoms[i] = reply ? reply->atom : 0;
  }
}

/// A server that is there answers within the patience, in time for the first list.
void X11Windows::startConnecting() {
  std::packaged_task<Server()> task([display = display_] { return openServer(display); });
  auto connecting = task.get_future();
  try {
    // Not joined: a server that never answers must not hold up the end of the program.
    std::thread(std::move(task)).detach();
  } catch (const std::system_error&) {
    return;  // no thread to be had now: the next update tries again
  }
  display_.clear();
  connecting.wait_for(patience);
  connecting_ = std::move(connecting);
}

void X11Windows::finishConnecting() {
  if (connecting_.wait_for(std::chrono::seconds(0)) != std::future_status::ready) return;
  Server server = connecting_.get();
  connection_ = std::move(server.connection);
  root_ = server.root;
  atoms_ = server.atoms;
}

bool X11Windows::disconnect() {
  connection_.reset();
  listed_.clear();
  order_.clear();
  return true;
}

void X11Windows::takeEvents() {
  while (const Owned<xcb_generic_event_t> event{xcb_poll_for_event(connection_.get())}) {
    if ((event->response_type & 0x7f) != XCB_PROPERTY_NOTIFY) continue;
    xcb_property_notify_event_t property{};
    std::memcpy(&property, event.get(), sizeof property);
    listIsStale_ = listIsStale_ || property.atom == atoms_[clientList];
  }
}

bool X11Windows::takeAnswers() {
  bool changed = false;
  if (listRequest_) {
    if (const auto list = answerTo(*listRequest_)) {
      listRequest_.reset();
      changed = takeList(*list);
    }
  }
  for (auto& [id, listed] : listed_) {
    if (listed.isWaiting()) changed = takeProperties(listed) || changed;
  }
  return changed;
}

bool X11Windows::isWaiting() const {
  return listRequest_ || listIsStale_ ||
         std::any_of(listed_.begin(), listed_.end(),
                     [](const auto& listed) { return listed.second.isWaiting(); });
}

/// False when the time is over or the connection broken.
bool X11Windows::waitUntil(Clock::time_point deadline) const {
  if (xcb_flush(connection_.get()) <= 0) return false;
  const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now()).count();
  if (left <= 0) return false;
  pollfd ready{.fd = xcb_get_file_descriptor(connection_.get()), .events = POLLIN, .revents = 0};
  ::poll(&ready, 1, static_cast<int>(left));
  return xcb_connection_has_error(connection_.get()) == 0;
}

/// None while the answer hasn't come.
std::optional<X11Windows::Answer> X11Windows::answerTo(unsigned request) const {
  void* reply = nullptr;
  xcb_generic_error_t* error = nullptr;
  if (xcb_poll_for_reply(connection_.get(), request, &reply, &error) == 0) return {};
  const Owned<xcb_generic_error_t> windowIsGone(error);
  return Answer{Owned<xcb_get_property_reply_t>(static_cast<xcb_get_property_reply_t*>(reply))};
}

void X11Windows::requestYoungOnes() {
  for (auto& [id, listed] : listed_) {
    if (!listed.isWaiting() && listed.readings < readingsPerWindow) requestProperties(id, listed);
  }
}

void X11Windows::requestList() {
  listIsStale_ = false;
  listRequest_ = xcb_get_property(connection_.get(), 0, root_, atoms_[clientList], XCB_ATOM_WINDOW,
                                  0, mostWords)
                     .sequence;
}

bool X11Windows::takeList(const Answer& list) {
  const auto ids = list.numbers();
  order_.assign(ids.begin(), ids.end());
  const auto gone = std::erase_if(listed_, [&](const auto& listed) {
    const bool isGone = std::find(order_.begin(), order_.end(), listed.first) == order_.end();
    if (isGone) discardAnswers(listed.second);
    return isGone;
  });
  for (const std::uint32_t id : order_) {
    const auto [listed, isNew] = listed_.try_emplace(id);
    if (isNew) requestProperties(id, listed->second);
  }
  return gone > 0;
}

void X11Windows::requestProperties(std::uint32_t id, ListedWindow& listed) {
  const auto request = [&](Property property, std::uint32_t atom) {
    listed.requests[property] =
        xcb_get_property(connection_.get(), 0, id, atom, XCB_ATOM_ANY, 0, 256).sequence;
  };
  listed.incoming = {};
  listed.answered = 0;
  ++listed.readings;
  request(pidProperty, atoms_[processId]);
  request(classProperty, XCB_ATOM_WM_CLASS);
  request(idProperty, atoms_[applicationId]);
  request(typeProperty, atoms_[windowType]);
  request(hostProperty, XCB_ATOM_WM_CLIENT_MACHINE);
}

/// The library keeps an answer until somebody takes it.
void X11Windows::discardAnswers(const ListedWindow& listed) const {
  for (auto i = static_cast<std::size_t>(listed.answered); i < listed.requests.size(); ++i) {
    xcb_discard_reply(connection_.get(), listed.requests[i]);
  }
}

/// True when all answers have come and tell something new.
bool X11Windows::takeProperties(ListedWindow& listed) const {
  while (listed.isWaiting()) {
    const auto property = static_cast<Property>(listed.answered);
    const auto answer = answerTo(listed.requests[property]);
    if (!answer) return false;
    takeProperty(listed.incoming, property, *answer);
    ++listed.answered;
  }
  const bool isNews = listed.known != listed.incoming;
  listed.known = std::move(listed.incoming);
  return isNews;
}

void X11Windows::takeProperty(Description& description, Property property,
                              const Answer& answer) const {
  const std::string_view text = answer.text();
  const auto numbers = answer.numbers();
  X11Window& window = description.window;
  switch (property) {
    case pidProperty:
      window.pid = numbers.empty() ? 0 : static_cast<std::int32_t>(numbers[0]);
      description.isLocal = description.isLocal && window.pid > 0;
      break;
    case classProperty: {
      const std::size_t end = std::min(text.find('\0'), text.size());
      window.instance = text.substr(0, end);
      const std::string_view rest = text.substr(std::min(end + 1, text.size()));
      window.className = rest.substr(0, rest.find('\0'));
      break;
    }
    case idProperty:
      window.applicationId = text.substr(0, text.find('\0'));
      break;
    case typeProperty:
      for (const std::uint32_t type : numbers) {
        if (type == atoms_[dockType] || type == atoms_[desktopType]) window.isDesktopPart = true;
      }
      break;
    case hostProperty:
      // The pid of a program on another machine says nothing here.
      if (!text.empty() && text.substr(0, text.find('\0')) != hostName_)
        description.isLocal = false;
      break;
    case allProperties:
      break;
  }
}

}  // namespace orvane
