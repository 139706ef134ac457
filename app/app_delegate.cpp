#include "app/app_delegate.h"

#include <utility>

#include "app/status_title.h"
#include "app/support_request.h"
#include "core/memory_boost.h"

namespace orvane {

std::shared_ptr<AppDelegate> AppDelegate::create(AppServices services) {
  return std::make_shared<AppDelegate>(std::move(services));
}

AppDelegate::AppDelegate(AppServices services)
    : services_(std::move(services)), memoryManager_(MemoryManager::create(services_.model)) {}

AppDelegate::~AppDelegate() {
  services_.model.notifications.setDelegate(nullptr);
}

void AppDelegate::applicationDidFinishLaunching() {
  services_.application.setActivationPolicy(ActivationPolicy::accessory);
  services_.model.preferences.setBoolean(quitKeepsWindowsKey, false);
  requestNotificationPermission();
  setupStatusItem();
  showMainWindowAtLaunch();
  updaterController_ = std::make_unique<UpdateController>(services_.updates, services_.windows,
                                                          services_.desktop, memoryManager_);
  observeBoost();
}

void AppDelegate::requestNotificationPermission() {
  NotificationService& notifications = services_.model.notifications;
  notifications.setDelegate(this);
  notifications.requestAuthorization(
      {.badge = true, .sound = true, .alert = true},
      [&output = services_.model.output](bool /*granted*/,
                                         const NotificationService::Error& error) {
        if (error) output.printLine("Error requesting notification permissions: " + *error);
      });
}

void AppDelegate::showMainWindowAtLaunch() {
  if (preference(hasLaunchedBeforeKey)) {
    if (preference(mainWindowVisibleKey)) showMainWindow();
    return;
  }
  services_.model.preferences.setBoolean(hasLaunchedBeforeKey, true);
  showMainWindow();
}

void AppDelegate::observeBoost() {
  services_.model.notificationCentre.addObserver(boostCompletedName, [weak = weak_from_this()] {
    if (const auto self = weak.lock()) self->updateStatusIcon(false);
  });
}

bool AppDelegate::preference(const char* key) const {
  return services_.model.preferences.boolean(key).value_or(false);
}

PresentationOptions AppDelegate::willPresentNotification(const NotificationRequest& /*request*/) {
  return {.sound = true, .banner = true};
}

void AppDelegate::didReceiveResponse(const NotificationRequest& /*request*/,
                                     const std::function<void()>& completion) {
  completion();
}

// The status item.

void AppDelegate::setupStatusItem() {
  statusItem_ = services_.statusBar.makeItem();
  if (statusItem_) {
    const auto weak = weak_from_this();
    statusItem_->setAction([weak](ScreenPoint item) {
      if (const auto self = weak.lock()) self->togglePopover(item);
    });
    statusItem_->setHostChanged([weak] {
      if (const auto self = weak.lock()) self->updateStatusIcon(self->isBoosting_);
    });
    statusItem_->setMenu(menuEntries());
  }
  updateStatusTitle();
  updateStatusIcon(false);
  titleTimer_ = services_.model.timers.repeat(statusTitleInterval, [weak = weak_from_this()] {
    if (const auto self = weak.lock()) self->updateStatusTitle();
  });
  setupPopover();
}

void AppDelegate::updateStatusTitle() {
  const auto& stats = memoryManager_->currentStats();
  const auto percent = stats ? wholeUsagePercent(*stats) : std::nullopt;
  if (!percent || !statusItem_) return;
  statusItem_->setTitle(statusTitle(*percent));
  statusItem_->setToolTip("Orvane", "Memory usage: " + percentText(*percent));
  redrawNumber(*percent);
}

/// Panels that draw no label get the number as the icon.
void AppDelegate::redrawNumber(int percent) {
  const bool changed = std::exchange(shownPercent_, percent) != percent;
  if (changed && !isBoosting_ && !statusItem_->hostDrawsLabel())
    statusItem_->setIcon(restingIcon());
}

std::vector<IconPixmap> AppDelegate::restingIcon() const {
  const bool needsNumber = shownPercent_ && !statusItem_->hostDrawsLabel();
  return needsNumber ? services_.icons.percentage(*shownPercent_) : services_.icons.normal();
}

void AppDelegate::updateStatusIcon(bool boosting) {
  isBoosting_ = boosting;
  if (!statusItem_) return;
  auto icon = boosting ? services_.icons.boosting() : restingIcon();
  if (boosting || !icon.empty()) statusItem_->setIcon(std::move(icon));
}

std::vector<StatusMenuEntry> AppDelegate::menuEntries() {
  using Kind = StatusMenuEntry::Kind;
  const PopoverClosures actions = popoverClosures();
  const StatusMenuEntry divider{
      .kind = Kind::divider, .label = {}, .isChecked = {}, .activate = {}};
  const auto toggle = [](const char* label, auto isOn, auto set) {
    return StatusMenuEntry{
        .kind = Kind::toggle, .label = label, .isChecked = isOn, .activate = [isOn, set] {
          set(!isOn());
        }};
  };
  const auto action = [](const char* label, auto activate) {
    return StatusMenuEntry{
        .kind = Kind::action, .label = label, .isChecked = {}, .activate = activate};
  };
  return {toggle("Show Window", actions.isMainWindowVisible, actions.setMainWindowVisible),
          divider,
          toggle("Launch at Login", actions.launchAtLogin, actions.setLaunchAtLogin),
          divider,
          action("Check for Updates...", actions.onCheckUpdates),
          divider,
          action("Quit Orvane", actions.onQuit)};
}

// The popover.

void AppDelegate::setupPopover() {
  popover_ = services_.windows.makePopover(memoryManager_);
}

void AppDelegate::togglePopover(ScreenPoint item) {
  if (!statusItem_) return;
  if (popover_ && popover_->isShown()) {
    popover_->performClose();
    return;
  }
  if (popover_) popover_->show(item, popoverClosures());
  memoryManager_->updateMemoryStats();
}

PopoverClosures AppDelegate::popoverClosures() {
  const auto weak = weak_from_this();
  const auto perform = [weak](auto operation) {
    return [weak, operation] {
      if (const auto self = weak.lock()) operation(*self);
    };
  };
  const auto ask = [weak](auto question) {
    return [weak, question] {
      const auto self = weak.lock();
      return self && question(*self);
    };
  };
  return {.isMainWindowVisible = ask([](AppDelegate& self) { return self.isMainWindowVisible_; }),
          .setMainWindowVisible =
              [weak](bool visible) {
                if (const auto self = weak.lock()) self->setMainWindowVisible(visible);
              },
          .onBoost = perform([](AppDelegate& self) { self.boostMemoryFromMenu(); }),
          .onCheckUpdates = perform([](AppDelegate& self) { self.checkForUpdates(); }),
          .onQuit = perform([](AppDelegate& self) { self.quitApp(); }),
          .launchAtLogin = ask([](AppDelegate& self) { return self.preference(launchAtLoginKey); }),
          .setLaunchAtLogin =
              [weak](bool enabled) {
                if (const auto self = weak.lock()) self->setLaunchAtLoginPreference(enabled);
              }};
}

// The main window.

void AppDelegate::setMainWindowVisible(bool visible) {
  if (visible) {
    showMainWindow();
  } else {
    hideMainWindow();
  }
}

void AppDelegate::showMainWindow() {
  services_.application.setActivationPolicy(ActivationPolicy::regular);
  if (!mainWindow_) {
    mainWindow_ = services_.windows.makeMainWindow(memoryManager_, mainWindowClosures(),
                                                   mainWindowDelegate());
  }
  if (mainWindow_) {
    presentMainWindow();
  } else {
    services_.application.setActivationPolicy(ActivationPolicy::accessory);
  }
}

MainWindowClosures AppDelegate::mainWindowClosures() {
  const auto weak = weak_from_this();
  return {.revealFile =
              [weak](const std::string& path) {
                if (const auto self = weak.lock()) self->services_.desktop.revealFile(path);
              },
          .contactSupport =
              [weak] {
                if (const auto self = weak.lock()) self->openSupportEmail();
              },
          .checkForUpdates =
              [weak] {
                if (const auto self = weak.lock()) self->checkForUpdates();
              },
          .quit =
              [weak] {
                if (const auto self = weak.lock()) self->quitApp();
              }};
}

MainWindowDelegate AppDelegate::mainWindowDelegate() {
  const auto weak = weak_from_this();
  return {.willClose =
              [weak](const MainWindow& window) {
                if (const auto self = weak.lock()) self->windowWillClose(window);
              },
          .didBecomeKey =
              [weak](const MainWindow& window) {
                if (const auto self = weak.lock()) self->windowDidBecomeKey(window);
              }};
}

void AppDelegate::presentMainWindow() {
  services_.application.activate();
  mainWindow_->makeKeyAndOrderFront();
  isMainWindowVisible_ = true;
  services_.model.preferences.setBoolean(mainWindowVisibleKey, true);
}

void AppDelegate::hideMainWindow() {
  if (!mainWindow_) return;
  mainWindow_->orderOut();
  isMainWindowVisible_ = false;
  services_.application.setActivationPolicy(ActivationPolicy::accessory);
  services_.model.preferences.setBoolean(mainWindowVisibleKey, false);
}

void AppDelegate::windowWillClose(const MainWindow& window) {
  if (&window == mainWindow_.get()) hideMainWindow();
}

void AppDelegate::windowDidBecomeKey(const MainWindow& window) {
  if (&window == mainWindow_.get()) isMainWindowVisible_ = true;
}

// Commands.

void AppDelegate::boostMemoryFromMenu() {
  updateStatusIcon(true);
  memoryManager_->boostMemory();
  // Without a sample the model starts no boost, and nothing would ever take the bolt away.
  if (!memoryManager_->isProcessing()) updateStatusIcon(false);
}

void AppDelegate::quitApp() {
  services_.application.terminate();
}

void AppDelegate::checkForUpdates() {
  if (updaterController_) updaterController_->checkForUpdates();
}

void AppDelegate::openSupportEmail() {
  if (const auto url = supportMailUrl(services_.supportAddress)) {
    services_.desktop.openUrl(*url);
  } else {
    services_.model.output.printLine("Failed to create mailto URL");
  }
}

void AppDelegate::setLaunchAtLoginPreference(bool enabled) {
  services_.model.preferences.setBoolean(launchAtLoginKey, enabled);
  setLaunchAtLogin(enabled);
}

void AppDelegate::setLaunchAtLogin(bool enabled) {
  const auto error =
      enabled ? services_.loginItem.registerItem() : services_.loginItem.unregisterItem();
  if (!error) return;
  services_.model.output.printLine(std::string("Failed to ") + (enabled ? "enable" : "disable") +
                                   " launch at login: " + *error);
}

}  // namespace orvane
