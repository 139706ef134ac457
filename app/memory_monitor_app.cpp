#include "app/memory_monitor_app.h"

#include <QtGui/QGuiApplication>
#include <QtGui/QWindow>
#include <algorithm>
#include <string>
#include <vector>

#include "app/app_delegate.h"
#include "app/load_windows.h"
#include "app/product_settings.h"
#include "app/status_icon.h"
#include "app/translation.h"
#include "platform/linux/applications/linux_applications.h"
#include "platform/linux/bus/session_bus.h"
#include "platform/linux/desktop/linux_appearance.h"
#include "platform/linux/desktop/linux_desktop_opener.h"
#include "platform/linux/desktop/linux_login_item.h"
#include "platform/linux/desktop/linux_notification_service.h"
#include "platform/linux/desktop/linux_preferences.h"
#include "platform/linux/desktop/single_instance.h"
#include "platform/linux/memory/linux_memory_claims.h"
#include "platform/linux/memory/linux_memory_counters.h"
#include "platform/linux/runtime/descriptor_limit.h"
#include "platform/linux/runtime/in_process_notification_centre.h"
#include "platform/linux/runtime/installed_program.h"
#include "platform/linux/runtime/linux_background_queue.h"
#include "platform/linux/runtime/linux_clock.h"
#include "platform/linux/runtime/linux_dispatch.h"
#include "platform/linux/runtime/linux_random_source.h"
#include "platform/linux/runtime/linux_standard_output.h"
#include "platform/linux/runtime/termination_signals.h"
#include "platform/linux/status_item/linux_status_bar.h"
#include "platform/linux/x11/x11_panels.h"

namespace orvane {
namespace {

class QtApplication : public Application {
 public:
  /// Does nothing: each window's own flags say whether taskbars list it.
  void setActivationPolicy(ActivationPolicy /*policy*/) override {}

  void activate() override {
    const QWindowList windows = QGuiApplication::topLevelWindows();
    for (QWindow* window : windows) {
      if (window->isVisible()) window->raise();
    }
  }

  /// Not QCoreApplication::quit(): it closes every window first, and a closed main window only
  /// hides and is stored as not visible.
  void terminate() override { QCoreApplication::exit(0); }

  void startAnew(StartWish wish) override {
    if (const auto option = optionOf(wish)) replaceByInstalledProgram(*option);
  }
};

/// Beside the program, as it was built, or where an installation puts it.
std::vector<std::string> moduleFolders() {
  const std::string own = QCoreApplication::applicationDirPath().toStdString();
  return {own, own + "/" + std::string(moduleFolder)};
}

bool isFrontmost() {
  return QGuiApplication::applicationState() == Qt::ApplicationActive;
}

/// Somebody can see the figures: the popover or a window is open.
bool isWatched() {
  const QWindowList windows = QGuiApplication::topLevelWindows();
  return std::any_of(windows.begin(), windows.end(), [](const QWindow* window) {
    return window->isVisible() && window->windowState() != Qt::WindowMinimized;
  });
}

}  // namespace

/// In the order of their making; what is below may use what is above.
struct MemoryMonitorApp::Services {
  explicit Services(SingleInstance& instance);

  [[nodiscard]] AppServices forDelegate();

  SessionBus bus;
  LinuxDesktopOpener desktop{bus};
  LinuxMainQueue mainQueue;
  LinuxTimerService timers;
  LinuxClock clock;
  LinuxRandomSource random;
  LinuxStandardOutput output;
  LinuxPreferences preferences;
  LinuxMemoryCounters counters;
  LinuxMemoryClaims claims;
  DescriptorLimit descriptors;
  LinuxBackgroundQueue backgroundQueue;
  LinuxApplications applications{
      LinuxApplications::desktopOptions(descriptors.current(), isWatched), mainQueue,
      backgroundQueue};
  InProcessNotificationCentre notificationCentre{mainQueue};
  LinuxNotificationService notifications{bus, isFrontmost};
  LinuxAppearance appearance{bus};
  LinuxStatusBar statusBar{bus};
  LinuxLoginItem loginItem{QCoreApplication::applicationFilePath().toStdString()};
  StatusIconPainter icons;
  QtApplication application;
  std::shared_ptr<AppDelegate> delegate;
  TerminationSignals terminationSignals;
};

MemoryMonitorApp::Services::Services(SingleInstance& instance)
    : delegate(AppDelegate::create(forDelegate())),
      terminationSignals([this] { delegate->quitApp(); }) {
  instance.listen([this](char wish) { delegate->fulfil(static_cast<StartWish>(wish)); });
}

AppServices MemoryMonitorApp::Services::forDelegate() {
  return {.model = {.counters = counters,
                    .claims = claims,
                    .applications = applications,
                    .notifications = notifications,
                    .notificationCentre = notificationCentre,
                    .preferences = preferences,
                    .mainQueue = mainQueue,
                    .backgroundQueue = backgroundQueue,
                    .timers = timers,
                    .clock = clock,
                    .random = random,
                    .output = output,
                    .translate = translated},
          .application = application,
          .statusBar = statusBar,
          .loginItem = loginItem,
          .desktop = desktop,
          .loadWindows =
              [this](Shell& shell, const std::shared_ptr<MemoryManager>& manager) {
                return loadWindows(
                    moduleFolders(),
                    {.appearance = appearance,
                     .facts = {.version = std::string(productVersion),
                               .builtOn = "Qt " + std::string(qVersion()) + " and GLib"},
                     .updateFeed = std::string(updateFeed)},
                    shell, manager);
              },
          .icons = icons,
          .panelScheme = x11PanelScheme,
          .supportAddress = std::string(supportAddress)};
}

MemoryMonitorApp::MemoryMonitorApp(SingleInstance& instance)
    : services_(std::make_unique<Services>(instance)) {}

MemoryMonitorApp::~MemoryMonitorApp() = default;

int MemoryMonitorApp::run(StartWish wish) {
  services_->bus.start();
  services_->delegate->applicationDidFinishLaunching(wish);
  const int status = QCoreApplication::exec();
  services_->terminationSignals.endSoon();
  return status;
}

}  // namespace orvane
