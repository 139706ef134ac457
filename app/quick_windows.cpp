#include "app/quick_windows.h"

#include <QtGui/QGuiApplication>
#include <QtGui/QIcon>
#include <utility>

#include "app/popover.h"
#include "app/quick_main_window.h"
#include "app/quick_update_window.h"
#include "platform/linux/files/regular_file.h"
#include "platform/linux/updates/linux_software_updater.h"

namespace orvane {

QuickWindows::QuickWindows(Appearance& appearance, ProductFacts facts)
    : appearance_(appearance), facts_(std::move(facts)) {
  // On desktops the toolkit doesn't know it finds hardly an application's icon by itself.
  if (QIcon::themeName() == QLatin1String("hicolor"))
    QIcon::setFallbackThemeName(QStringLiteral("Adwaita"));
  QGuiApplication::setWindowIcon(QIcon(QStringLiteral(":/orvane/icons/orvane.svg")));
  appearance_.setChanged([this] {
    if (views_) views_->setColorScheme(appearance_.colorScheme());
  });
}

QuickWindows::~QuickWindows() {
  appearance_.setChanged({});
}

Views& QuickWindows::views(const std::shared_ptr<MemoryManager>& manager) {
  if (!views_) {
    views_ = std::make_unique<Views>(manager, readRegularFile);
    views_->setColorScheme(appearance_.colorScheme());
  }
  return *views_;
}

std::unique_ptr<Popover> QuickWindows::makePopover(const std::shared_ptr<MemoryManager>& manager) {
  return std::make_unique<StatusPopover>(views(manager));
}

std::unique_ptr<MainWindow> QuickWindows::makeMainWindow(
    const std::shared_ptr<MemoryManager>& manager, MainWindowClosures closures,
    MainWindowDelegate delegate) {
  closures.showAbout = [this] { showAbout(); };
  return std::make_unique<QuickMainWindow>(views(manager), std::move(closures),
                                           std::move(delegate));
}

std::unique_ptr<UpdateWindow> QuickWindows::makeUpdateWindow(
    const std::shared_ptr<MemoryManager>& manager, UpdateClosures closures) {
  return std::make_unique<QuickUpdateWindow>(views(manager), std::move(closures), facts_.version);
}

std::unique_ptr<SoftwareUpdater> QuickWindows::makeUpdater(UpdateSettings settings) {
  return std::make_unique<LinuxSoftwareUpdater>(std::move(settings));
}

void QuickWindows::showAbout() {
  if (about_.view() != nullptr) {
    about_.raise();
    return;
  }
  about_.show(views_->makeAboutView(facts_, [this] { about_.close(); }),
              QStringLiteral("About Orvane"));
}

}  // namespace orvane
