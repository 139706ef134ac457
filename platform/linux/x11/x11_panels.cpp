#include "platform/linux/x11/x11_panels.h"

#include <algorithm>
#include <span>
#include <vector>

#include "platform/linux/x11/x11_connection.h"

namespace orvane {
namespace {

constexpr std::uint32_t longestList = 4096;

xcb_get_property_cookie_t askFor(xcb_connection_t* connection, xcb_window_t window,
                                 xcb_atom_t name) {
  return xcb_get_property(connection, 0, window, name, XCB_ATOM_ANY, 0, longestList);
}

/// A property of 32-bit values; none where it is missing.
std::vector<std::uint32_t> numbers(xcb_connection_t* connection, xcb_get_property_cookie_t asked) {
  const XcbReply<xcb_get_property_reply_t> reply(
      xcb_get_property_reply(connection, asked, nullptr));
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

struct Panel {
  xcb_window_t window;
  QRect frame;
};

std::vector<Panel> panels(xcb_connection_t* connection) {
  const auto atoms = internAtoms(
      connection, {"_NET_CLIENT_LIST", "_NET_WM_WINDOW_TYPE", "_NET_WM_WINDOW_TYPE_DOCK"});
  const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
  const auto windows = numbers(connection, askFor(connection, root, atoms[0]));
  // Each answer that is waited for wakes the program up: all questions first.
  std::vector<xcb_get_property_cookie_t> asked;
  for (const xcb_window_t window : windows) asked.push_back(askFor(connection, window, atoms[1]));
  std::vector<Panel> found;
  for (std::size_t i = 0; i < windows.size(); ++i) {
    const auto types = numbers(connection, asked[i]);
    if (std::find(types.begin(), types.end(), atoms[2]) == types.end()) continue;
    const QRect frame = frameOf(connection, windows[i], root);
    if (!frame.isEmpty()) found.push_back({windows[i], frame});
  }
  return found;
}

/// How bright the pixels of a panel's line are, from 0 to 255; what shines through isn't the
/// panel's.
void addBrightness(xcb_connection_t* connection, xcb_window_t window, const QRect& line,
                   std::vector<int>& brightness) {
  const XcbReply<xcb_get_image_reply_t> image(xcb_get_image_reply(
      connection,
      xcb_get_image(connection, XCB_IMAGE_FORMAT_Z_PIXMAP, window,
                    static_cast<std::int16_t>(line.x()), static_cast<std::int16_t>(line.y()),
                    static_cast<std::uint16_t>(line.width()),
                    static_cast<std::uint16_t>(line.height()), ~0U),
      nullptr));
  if (!image || (image->depth != 24 && image->depth != 32)) return;
  const std::span bytes(xcb_get_image_data(image.get()),
                        static_cast<std::size_t>(xcb_get_image_data_length(image.get())));
  constexpr std::size_t pixelBytes = 4;
  for (std::size_t at = 0; at + pixelBytes <= bytes.size(); at += pixelBytes) {
    constexpr int mostlyOpaque = 200;
    const bool isOpaque = image->depth == 24 || bytes[at + 3] >= mostlyOpaque;
    if (isOpaque) brightness.push_back((bytes[at] + 5 * bytes[at + 1] + 2 * bytes[at + 2]) / 8);
  }
}

/// By the lines at its long edges, where its own ground is seen most; none for one that is clear.
std::optional<ColorScheme> schemeOf(xcb_connection_t* connection, const Panel& panel) {
  constexpr int inset = 2;
  const QSize size = panel.frame.size();
  const bool isWide = size.width() >= size.height();
  QRect line(0, 0, isWide ? size.width() : 1, isWide ? 1 : size.height());
  std::vector<int> brightness;
  for (const int at : {inset, (isWide ? size.height() : size.width()) - 1 - inset}) {
    isWide ? line.moveTop(at) : line.moveLeft(at);
    addBrightness(connection, panel.window, line, brightness);
  }
  const auto all = static_cast<std::size_t>(line.width()) * static_cast<std::size_t>(line.height());
  if (brightness.size() < all) return std::nullopt;
  const auto middle = brightness.begin() + static_cast<std::ptrdiff_t>(brightness.size() / 2);
  std::nth_element(brightness.begin(), middle, brightness.end());
  constexpr int halfBright = 128;
  return *middle < halfBright ? ColorScheme::dark : ColorScheme::light;
}

}  // namespace

QList<QRect> x11PanelFrames() {
  xcb_connection_t* connection = x11Connection();
  if (connection == nullptr) return {};
  QList<QRect> frames;
  for (const Panel& panel : panels(connection)) frames.append(panel.frame);
  return frames;
}

std::optional<ColorScheme> x11PanelScheme() {
  xcb_connection_t* connection = x11Connection();
  if (connection == nullptr) return std::nullopt;
  std::optional<ColorScheme> shared;
  for (const Panel& panel : panels(connection)) {
    const auto scheme = schemeOf(connection, panel);
    if (!scheme || (shared && shared != scheme)) return std::nullopt;
    shared = scheme;
  }
  return shared;
}

}  // namespace orvane
