#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "app/application.h"
#include "app/command_line.h"
#include "app/status_icon.h"
#include "app/windows_module.h"
#include "core/memory_manager.h"
#include "platform/desktop_opener.h"
#include "platform/login_item.h"
#include "platform/status_bar.h"
#include "ui/windows/windows.h"

namespace orvane {

inline constexpr Duration statusTitleInterval{5.0};
/// How long a panel may take for the item, before the main window is shown instead.
inline constexpr Duration panelPatience{10.0};
inline constexpr Duration restartDelay{0.3};
/// Of the title's timer, from one question for the panel's colours to the next.
inline constexpr int panelSchemeTicks = 12;

inline constexpr const char* hasLaunchedBeforeKey = "hasLaunchedBefore";
inline constexpr const char* mainWindowVisibleKey = "mainWindowVisible";
inline constexpr const char* launchAtLoginKey = "launchAtLogin";
inline constexpr const char* quitKeepsWindowsKey = "NSQuitAlwaysKeepsWindows";

/// What the delegate calls. All of it outlives the delegate.
struct AppServices {
  MemoryManagerServices model;
  Application& application;
  StatusBar& statusBar;
  LoginItem& loginItem;
  DesktopOpener& desktop;
  WindowLoader loadWindows;
  const StatusIcons& icons;
  /// Whether the panel is light or dark, as far as the desktop tells. Asked when an item gets a
  /// panel, at the next tick, when that is painted, and once a minute from then on.
  std::function<std::optional<ColorScheme>()> panelScheme = [] {
    return std::optional<ColorScheme>();
  };
  std::string supportAddress;
};

/// The shell: owns the model, the status item with its menu, the windows and the update check, and
/// keeps the preferences about them. The windows are loaded when the first is wanted.
///
/// Main thread only. No operation blocks, and none reports an error to its caller.
class AppDelegate : public NotificationDelegate,
                    public Shell,
                    public std::enable_shared_from_this<AppDelegate> {
 public:
  /// Makes the model, which takes its first sample and samples from then on.
  [[nodiscard]] static std::shared_ptr<AppDelegate> create(AppServices services);

  explicit AppDelegate(AppServices services);
  AppDelegate(const AppDelegate&) = delete;
  AppDelegate& operator=(const AppDelegate&) = delete;
  ~AppDelegate() override;

  /// The launch sequence, once. Hidden, it opens no window; with any other wish, that comes last.
  void applicationDidFinishLaunching(StartWish wish = StartWish::plain);

  /// What a further start of the program wishes; a plain one wants to see the window.
  void fulfil(StartWish wish);

  void updateStatusTitle();
  /// Draws the bolt or the normal icon anew.
  void updateStatusIcon(bool boosting);
  /// The status item's action. `item` is where the panel says the item is.
  void togglePopover(ScreenPoint item);
  /// Opens the popover anew, at the place that a panel told last.
  void showDetails();

  void showMainWindow();
  void hideMainWindow();
  [[nodiscard]] bool isMainWindowVisible() const override { return isMainWindowVisible_; }
  void setMainWindowVisible(bool visible) override;
  void windowWillClose(WindowKind window) override;
  void windowDidBecomeKey(WindowKind window) override;

  void boostMemoryFromMenu() override;
  void quitApp() override;
  void checkForUpdates() override;
  void openSupportEmail() override;
  void openUrl(const std::string& address) override;
  void revealFile(const std::string& path) override;
  [[nodiscard]] bool launchAtLogin() const override;
  /// Stores the choice, and registers or unregisters the login item.
  void setLaunchAtLoginPreference(bool enabled) override;
  /// Registers or unregisters the login item; a failure is printed.
  void setLaunchAtLogin(bool enabled);

  PresentationOptions willPresentNotification(const NotificationRequest& request) override;
  void didReceiveResponse(const NotificationRequest& request,
                          const std::function<void()>& completion) override;

  [[nodiscard]] const std::shared_ptr<MemoryManager>& memoryManager() const {
    return memoryManager_;
  }

 private:
  void requestNotificationPermission();
  void setupStatusItem();
  void showMainWindowAtLaunch();
  void showMainWindowWithoutPanel();
  void observeBoost();
  /// Draws the icon anew where the number or the panel looks different now.
  void refreshIcon(int percent);
  [[nodiscard]] std::vector<IconPixmap> restingIcon() const;
  [[nodiscard]] bool preference(const char* key) const;
  [[nodiscard]] std::vector<StatusItemMenuEntry> menuEntries();
  /// Shows a window by `show`, with the windows loaded by now. Where that fails the user is told,
  /// and a program that an upgrade installed takes over for `wish`. True when it is shown.
  bool showWindow(StartWish wish, const std::function<bool(Windows&)>& show);

  AppServices services_;
  std::unique_ptr<StatusBarItem> statusItem_;
  ScreenPoint itemPlace_;
  std::shared_ptr<MemoryManager> memoryManager_;
  LoadedWindows loaded_;
  bool hasMainWindow_ = false;
  bool isMainWindowVisible_ = false;

  std::unique_ptr<RepeatingTimer> titleTimer_;
  std::optional<int> shownPercent_;
  std::optional<ColorScheme> panelScheme_;
  int ticksOfPanel_ = 0;  ///< since the panel became another one
  bool isBoosting_ = false;
};

}  // namespace orvane
