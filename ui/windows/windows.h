#pragma once

#include <string>

#include "platform/software_updater.h"
#include "platform/status_bar.h"

namespace orvane {

/// The windows that the program opens, each at most once at a time.
enum class WindowKind { popover, main, update, about };

/// What the windows ask of, and tell, the program around them. Threads: main thread only.
class Shell {
 public:
  virtual void boostMemoryFromMenu() = 0;
  virtual void quitApp() = 0;
  /// The user-initiated check; one that is running already starts over.
  virtual void checkForUpdates() = 0;
  virtual void openSupportEmail() = 0;
  virtual void openUrl(const std::string& address) = 0;
  /// Shows a file in the desktop's file manager; `path` in bytes, as in the record.
  virtual void revealFile(const std::string& path) = 0;

  [[nodiscard]] virtual bool isMainWindowVisible() const = 0;
  virtual void setMainWindowVisible(bool visible) = 0;
  [[nodiscard]] virtual bool launchAtLogin() const = 0;
  virtual void setLaunchAtLoginPreference(bool enabled) = 0;

  /// The user closes a window. All but the main one, which the shell hides, are gone by then.
  virtual void windowWillClose(WindowKind window) = 0;
  virtual void windowDidBecomeKey(WindowKind window) = 0;

 protected:
  ~Shell() = default;
};

/// The program's windows over one model, as the shell sees them. Nothing is made before it is
/// shown. Threads: main thread only.
class Windows {
 public:
  virtual ~Windows() = default;

  /// Shows new content beside the status item; `item` is where the panel says the item is. False
  /// when the window can't be made, as with each that is shown.
  virtual bool showPopover(ScreenPoint item) = 0;
  virtual void closePopover() = 0;
  /// Also true for 0.4 s after a press elsewhere closed it, but on X11: that press may be the click
  /// on the item that the panel is about to report.
  [[nodiscard]] virtual bool isPopoverShown() const = 0;

  /// Brings the main window to the front, with the focus: the one window, as it was.
  virtual bool showMainWindow() = 0;
  /// Hides it; the shell isn't told.
  virtual void hideMainWindow() = 0;

  /// Opens the update window, or brings it forward, on a check that runs.
  virtual bool showUpdateCheck() = 0;
  /// Shows how the check ended; nothing when the window is closed by then.
  virtual void showUpdateResult(const UpdateResult& result) = 0;
};

/// What "About Orvane" tells, and the update window of the running version.
struct ProductFacts {
  std::string version;
  std::string builtOn;  ///< names and versions of the libraries
};

}  // namespace orvane
