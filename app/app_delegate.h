#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "app/application.h"
#include "app/status_icon.h"
#include "app/update_controller.h"
#include "app/windows.h"
#include "core/memory_manager.h"
#include "platform/desktop_opener.h"
#include "platform/login_item.h"
#include "platform/software_updater.h"
#include "platform/status_bar.h"

namespace orvane {

inline constexpr Duration statusTitleInterval{5.0};

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
  UpdateSettings updates;
  DesktopOpener& desktop;
  WindowFactory& windows;
  const StatusIcons& icons;
  std::string supportAddress;
};

/// The shell: owns the model, the status item with its popover and menu, the main window and the
/// update controller, and keeps the preferences about them.
///
/// Main thread only. No operation blocks, and none reports an error to its caller.
class AppDelegate : public NotificationDelegate, public std::enable_shared_from_this<AppDelegate> {
 public:
  /// Makes the model, which takes its first sample and samples from then on.
  [[nodiscard]] static std::shared_ptr<AppDelegate> create(AppServices services);

  explicit AppDelegate(AppServices services);
  AppDelegate(const AppDelegate&) = delete;
  AppDelegate& operator=(const AppDelegate&) = delete;
  ~AppDelegate() override;

  /// The launch sequence, once.
  void applicationDidFinishLaunching();

  void updateStatusTitle();
  /// Draws the bolt or the normal icon anew.
  void updateStatusIcon(bool boosting);
  /// The status item's action. `item` is where the panel says the item is.
  void togglePopover(ScreenPoint item);

  void showMainWindow();
  void hideMainWindow();
  void windowWillClose(const MainWindow& window);
  void windowDidBecomeKey(const MainWindow& window);

  void boostMemoryFromMenu();
  void quitApp();
  void checkForUpdates();
  void openSupportEmail();
  /// Registers or unregisters the login item; a failure is printed.
  void setLaunchAtLogin(bool enabled);

  PresentationOptions willPresentNotification(const NotificationRequest& request) override;
  void didReceiveResponse(const NotificationRequest& request,
                          const std::function<void()>& completion) override;

  [[nodiscard]] const std::shared_ptr<MemoryManager>& memoryManager() const {
    return memoryManager_;
  }
  [[nodiscard]] bool isMainWindowVisible() const { return isMainWindowVisible_; }

 private:
  void requestNotificationPermission();
  void setupStatusItem();
  void setupPopover();
  void showMainWindowAtLaunch();
  void observeBoost();
  void presentMainWindow();
  void redrawNumber(int percent);
  [[nodiscard]] std::vector<IconPixmap> restingIcon() const;
  [[nodiscard]] bool preference(const char* key) const;
  void setMainWindowVisible(bool visible);
  void setLaunchAtLoginPreference(bool enabled);
  [[nodiscard]] PopoverClosures popoverClosures();
  [[nodiscard]] MainWindowClosures mainWindowClosures();
  [[nodiscard]] MainWindowDelegate mainWindowDelegate();
  [[nodiscard]] std::vector<StatusMenuEntry> menuEntries();

  AppServices services_;
  std::unique_ptr<StatusBarItem> statusItem_;
  std::unique_ptr<Popover> popover_;
  std::shared_ptr<MemoryManager> memoryManager_;
  std::unique_ptr<MainWindow> mainWindow_;
  bool isMainWindowVisible_ = false;
  std::unique_ptr<UpdateController> updaterController_;

  std::unique_ptr<RepeatingTimer> titleTimer_;
  std::optional<int> shownPercent_;
  bool isBoosting_ = false;
};

}  // namespace orvane
