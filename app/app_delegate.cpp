#include "app/app_delegate.h"

#include <functional>
#include <utility>

#include "app/status_title.h"
#include "app/support_request.h"
#include "app/translation.h"
#include "core/memory_boost.h"
#include "core/texts.h"

namespace orvane {

std::shared_ptr<AppDelegate> AppDelegate::create(AppServices services) {
  return std::make_shared<AppDelegate>(std::move(services));
}

AppDelegate::AppDelegate(AppServices services)
    : services_(std::move(services)), memoryManager_(MemoryManager::create(services_.model)) {}

AppDelegate::~AppDelegate() {
  services_.model.notifications.setDelegate(nullptr);
}

void AppDelegate::applicationDidFinishLaunching(StartWish wish) {
  services_.application.setActivationPolicy(ActivationPolicy::accessory);
  services_.model.preferences.setBoolean(quitKeepsWindowsKey, false);
  requestNotificationPermission();
  setupStatusItem();
  if (wish != StartWish::hidden) {
    showMainWindowAtLaunch();
    showMainWindowWithoutPanel();
  }
  observeBoost();
  if (wish != StartWish::plain) fulfil(wish);
}

void AppDelegate::fulfil(StartWish wish) {
  switch (wish) {
    case StartWish::plain:
    case StartWish::showWindow:
      return showMainWindow();
    case StartWish::showPopover:
      return showDetails();
    case StartWish::quit:
      return quitApp();
    case StartWish::hidden:
      return;
  }
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

/// Without the item there would be nothing to see of the program.
void AppDelegate::showMainWindowWithoutPanel() {
  services_.model.mainQueue.after(panelPatience, [weak = weak_from_this()] {
    const auto self = weak.lock();
    if (!self || self->isMainWindowVisible_) return;
    if (!self->statusItem_ || !self->statusItem_->isShown()) self->showMainWindow();
  });
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
      const auto self = weak.lock();
      if (!self) return;
      self->panelScheme_ = self->services_.panelScheme();
      self->ticksOfPanel_ = 0;
      self->updateStatusIcon(self->isBoosting_);
    });
    statusItem_->setMenu(menuEntries());
  }
  updateStatusTitle();
  updateStatusIcon(false);
  titleTimer_ = services_.model.timers.repeat(statusTitleInterval, [weak = weak_from_this()] {
    if (const auto self = weak.lock()) self->updateStatusTitle();
  });
}

void AppDelegate::updateStatusTitle() {
  const auto& stats = memoryManager_->currentStats();
  const auto percent = stats ? wholeUsagePercent(*stats) : std::nullopt;
  if (!percent || !statusItem_) return;
  statusItem_->setTitle(statusTitle(*percent));
  // LXQt shows the tooltip's title alone.
  statusItem_->setToolTip(filled(translated("Memory usage: %1", "tooltip; %1 is a percentage"),
                                 {percentText(*percent)}),
                          "Orvane");
  statusItem_->refreshMenu();
  refreshIcon(*percent);
}

void AppDelegate::refreshIcon(int percent) {
  const bool showsNumber = !isBoosting_ && !statusItem_->hostDrawsLabel();
  const bool isNewNumber = std::exchange(shownPercent_, percent) != percent && showsNumber;
  const bool isDue = ticksOfPanel_++ % panelSchemeTicks == 0;
  const auto panel = isDue ? services_.panelScheme() : panelScheme_;
  if (std::exchange(panelScheme_, panel) != panel || isNewNumber) updateStatusIcon(isBoosting_);
}

/// Panels that draw no label get the number as the icon.
std::vector<IconPixmap> AppDelegate::restingIcon() const {
  const bool needsNumber = shownPercent_ && !statusItem_->hostDrawsLabel();
  return needsNumber ? services_.icons.percentage(*shownPercent_, panelScheme_)
                     : services_.icons.normal(panelScheme_);
}

void AppDelegate::updateStatusIcon(bool boosting) {
  isBoosting_ = boosting;
  if (!statusItem_) return;
  auto icon = boosting ? services_.icons.boosting(panelScheme_) : restingIcon();
  if (boosting || !icon.empty()) statusItem_->setIcon(std::move(icon));
}

std::vector<StatusItemMenuEntry> AppDelegate::menuEntries() {
  using Kind = StatusItemMenuEntry::Kind;
  const auto weak = weak_from_this();
  const StatusItemMenuEntry divider{.kind = Kind::divider};
  const auto text = [](const char* label) {
    return translated(label, "entry of the status item's menu");
  };
  const auto toggle = [weak, text](const char* label, auto isOn, auto set) {
    const auto checked = [weak, isOn] {
      const auto self = weak.lock();
      return self && std::invoke(isOn, *self);
    };
    const auto flip = [weak, isOn, set] {
      if (const auto self = weak.lock()) std::invoke(set, *self, !std::invoke(isOn, *self));
    };
    return StatusItemMenuEntry{
        .kind = Kind::toggle, .label = text(label), .isChecked = checked, .activate = flip};
  };
  const auto action = [weak, text](const char* label, auto operation) {
    const auto perform = [weak, operation] {
      if (const auto self = weak.lock()) std::invoke(operation, *self);
    };
    return StatusItemMenuEntry{.kind = Kind::action, .label = text(label), .activate = perform};
  };
  const auto figure = [weak] {
    const auto self = weak.lock();
    return self ? usageSummary(self->memoryManager_->currentStats()) : std::string();
  };
  return {
      {.kind = Kind::figure, .text = figure},
      action("Show Details", &AppDelegate::showDetails),
      action("Boost Memory", &AppDelegate::boostMemoryFromMenu),
      divider,
      toggle("Show Window", &AppDelegate::isMainWindowVisible, &AppDelegate::setMainWindowVisible),
      divider,
      toggle("Launch at Login", &AppDelegate::launchAtLogin,
             &AppDelegate::setLaunchAtLoginPreference),
      divider,
      action("Check for Updates...", &AppDelegate::checkForUpdates),
      divider,
      action("Quit Orvane", &AppDelegate::quitApp)};
}

// The windows.

bool AppDelegate::showWindow(StartWish wish, const std::function<bool(Windows&)>& show) {
  if (!loaded_.windows) loaded_ = services_.loadWindows(*this, memoryManager_);
  if (loaded_.windows && show(*loaded_.windows)) return true;
  services_.model.notifications.add(
      {.identifier = "windows",
       .content = {.title = "Orvane can't open its window",
                   .body = "A part of it is missing, or was replaced while Orvane ran."}},
      [](const NotificationService::Error&) {});
  // Later, so that the message is on its way.
  services_.model.mainQueue.after(restartDelay, [weak = weak_from_this(), wish] {
    if (const auto self = weak.lock()) self->services_.application.startAnew(wish);
  });
  return false;
}

void AppDelegate::togglePopover(ScreenPoint item) {
  if (!statusItem_) return;
  itemPlace_ = item;
  if (loaded_.windows && loaded_.windows->isPopoverShown()) {
    loaded_.windows->closePopover();
    return;
  }
  showDetails();
}

void AppDelegate::showDetails() {
  if (!statusItem_) return;
  showWindow(StartWish::showPopover,
             [this](Windows& windows) { return windows.showPopover(itemPlace_); });
  memoryManager_->updateMemoryStats();
}

void AppDelegate::setMainWindowVisible(bool visible) {
  if (visible) {
    showMainWindow();
  } else {
    hideMainWindow();
  }
}

void AppDelegate::showMainWindow() {
  services_.application.setActivationPolicy(ActivationPolicy::regular);
  const bool isShown = showWindow(StartWish::showWindow, [this](Windows& windows) {
    services_.application.activate();
    return windows.showMainWindow();
  });
  if (!isShown) {
    if (!isMainWindowVisible_)
      services_.application.setActivationPolicy(ActivationPolicy::accessory);
    return;
  }
  hasMainWindow_ = true;
  isMainWindowVisible_ = true;
  services_.model.preferences.setBoolean(mainWindowVisibleKey, true);
}

void AppDelegate::hideMainWindow() {
  if (!hasMainWindow_) return;
  loaded_.windows->hideMainWindow();
  isMainWindowVisible_ = false;
  services_.application.setActivationPolicy(ActivationPolicy::accessory);
  services_.model.preferences.setBoolean(mainWindowVisibleKey, false);
}

void AppDelegate::windowWillClose(WindowKind window) {
  if (window == WindowKind::main) hideMainWindow();
  if (window == WindowKind::update) loaded_.updaterController->cancel();
}

void AppDelegate::windowDidBecomeKey(WindowKind window) {
  if (window == WindowKind::main) isMainWindowVisible_ = true;
}

// Commands.

void AppDelegate::boostMemoryFromMenu() {
  updateStatusIcon(true);
  memoryManager_->boostMemory();
  // Without a sample the model starts no boost, so no "BoostCompleted" would take the bolt away.
  if (!memoryManager_->isProcessing()) updateStatusIcon(false);
}

void AppDelegate::quitApp() {
  services_.application.terminate();
}

void AppDelegate::checkForUpdates() {
  if (!showWindow(StartWish::showWindow,
                  [](Windows& windows) { return windows.showUpdateCheck(); }))
    return;
  loaded_.updaterController->checkForUpdates(
      [this](const UpdateResult& result) { loaded_.windows->showUpdateResult(result); });
}

void AppDelegate::openUrl(const std::string& address) {
  services_.desktop.openUrl(address);
}

void AppDelegate::revealFile(const std::string& path) {
  services_.desktop.revealFile(path);
}

void AppDelegate::openSupportEmail() {
  if (const auto url = supportMailUrl(services_.supportAddress)) {
    services_.desktop.openUrl(*url);
  } else {
    services_.model.output.printLine("Failed to create mailto URL");
  }
}

bool AppDelegate::launchAtLogin() const {
  return preference(launchAtLoginKey);
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
