#pragma once

#include <xcb/xcb.h>

#include <QtCore/QAbstractNativeEventFilter>
#include <array>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace orvane {

/// A window of the desktop.
struct X11Window {
  std::int32_t pid = 0;
  bool isDesktopPart = false;  ///< a panel, the background or the window manager's own
  std::string instance;        ///< WM_CLASS, first part
  std::string className;       ///< WM_CLASS, second part
  std::string applicationId;   ///< _GTK_APPLICATION_ID: names the desktop entry; often empty

  bool operator==(const X11Window&) const = default;
};

/// The windows that the window manager of an X11 display lists, read over Qt's connection.
///
/// The server is asked only after it announced a change, in two round trips. Programs may describe
/// a window shortly after it was shown, so it is asked about three times. Main thread only.
class X11Windows : public QAbstractNativeEventFilter {
 public:
  /// Without a connection (null) there are no windows. The QGuiApplication must outlive the object.
  explicit X11Windows(xcb_connection_t* connection);

  /// Asks what is new; true when the windows changed.
  bool update();

  /// The windows of programs on this machine, oldest first.
  [[nodiscard]] std::vector<X11Window> windows() const;

  bool nativeEventFilter(const QByteArray& type, void* message, qintptr* result) override;

 private:
  enum Atom {
    clientList,
    managerCheck,
    processId,
    applicationId,
    windowType,
    dockType,
    desktopType,
    atomCount
  };
  struct Description {
    X11Window window;
    bool isLocal = true;  ///< its process runs on this machine and is known

    bool operator==(const Description&) const = default;
  };
  struct ListedWindow {
    Description description;
    int readings = 0;  ///< how often it was asked about
  };
  using Cookies = std::array<xcb_get_property_cookie_t, 5>;

  bool updateList();
  [[nodiscard]] std::vector<xcb_window_t> windowIds(xcb_get_property_cookie_t cookie) const;
  [[nodiscard]] Cookies request(xcb_window_t id) const;
  [[nodiscard]] Description takeAnswers(const Cookies& cookies) const;
  [[nodiscard]] xcb_get_property_cookie_t property(xcb_window_t id, xcb_atom_t name,
                                                   std::uint32_t words) const;

  xcb_connection_t* connection_;
  std::string hostName_;
  std::uint32_t root_ = 0;
  std::vector<xcb_atom_t> atoms_;
  bool listIsStale_ = true;
  std::map<xcb_window_t, ListedWindow> listed_;
  std::vector<xcb_window_t> order_;
  xcb_window_t managerWindow_ = 0;
};

}  // namespace orvane
