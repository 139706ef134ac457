#pragma once

#include <array>
#include <chrono>
#include <cstdint>
#include <future>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

struct xcb_connection_t;

namespace orvane {

/// A window of the desktop.
struct X11Window {
  std::int32_t pid = 0;
  bool isDesktopPart = false;  ///< a panel or the desktop's background, no application's window
  std::string instance;        ///< WM_CLASS, first part
  std::string className;       ///< WM_CLASS, second part
  std::string applicationId;   ///< _GTK_APPLICATION_ID: names the desktop entry; often empty

  bool operator==(const X11Window&) const = default;
};

/// The windows that the window manager of an X11 display lists.
///
/// The server is asked anew only when it announced a change; otherwise `update` costs no round
/// trip. Programs may describe a window shortly after it was shown, so it is asked about
/// three times. A server that answers late is not waited for: the answer is taken the next time.
/// Connecting may take any time (a compositor starts its X server only then), so it happens on a
/// thread of its own.
/// Without a display, and after losing it, there are no windows. Threads: one at a time.
class X11Windows {
 public:
  /// `display` as in DISPLAY; empty for none. Connects at the first `update`.
  explicit X11Windows(std::string display);
  ~X11Windows();
  X11Windows(const X11Windows&) = delete;
  X11Windows& operator=(const X11Windows&) = delete;

  /// Takes what is new; true when the windows changed.
  bool update();

  /// The windows of programs on this machine, oldest first.
  [[nodiscard]] std::vector<X11Window> windows() const;

 private:
  enum Atom { clientList, processId, applicationId, windowType, dockType, desktopType, atomCount };
  enum Property {
    pidProperty,
    classProperty,
    idProperty,
    typeProperty,
    hostProperty,
    allProperties
  };
  struct Disconnect {
    void operator()(xcb_connection_t* connection) const;
  };
  struct Server {
    std::unique_ptr<xcb_connection_t, Disconnect> connection;  ///< null when there is none
    std::uint32_t root = 0;
    std::array<std::uint32_t, atomCount> atoms{};
  };
  struct Description {
    X11Window window;
    bool isLocal = true;

    bool operator==(const Description&) const = default;
  };
  struct ListedWindow {
    std::optional<Description> known;
    Description incoming;
    std::array<unsigned, allProperties> requests{};
    int answered = allProperties;  ///< how many of the requests
    int readings = 0;              ///< how often everything was asked

    [[nodiscard]] bool isWaiting() const { return answered < allProperties; }
  };
  struct Answer;

  [[nodiscard]] static Server openServer(const std::string& display);
  static void internAtoms(Server& server);
  void startConnecting();
  void finishConnecting();
  bool disconnect();
  void takeEvents();
  [[nodiscard]] bool takeAnswers();
  [[nodiscard]] bool isWaiting() const;
  [[nodiscard]] bool waitUntil(std::chrono::steady_clock::time_point deadline) const;
  [[nodiscard]] std::optional<Answer> answerTo(unsigned request) const;
  void requestYoungOnes();
  void requestList();
  [[nodiscard]] bool takeList(const Answer& list);
  void requestProperties(std::uint32_t id, ListedWindow& listed);
  void discardAnswers(const ListedWindow& listed) const;
  [[nodiscard]] bool takeProperties(ListedWindow& listed) const;
  void takeProperty(Description& description, Property property, const Answer& answer) const;

  std::string display_;
  std::string hostName_;
  std::future<Server> connecting_;
  std::unique_ptr<xcb_connection_t, Disconnect> connection_;
  std::uint32_t root_ = 0;
  std::array<std::uint32_t, atomCount> atoms_{};
  bool listIsStale_ = true;
  std::optional<unsigned> listRequest_;
  std::map<std::uint32_t, ListedWindow> listed_;
  std::vector<std::uint32_t> order_;
};

}  // namespace orvane
