// The one function that the module of the windows exports.
#include "app/windows_module.h"

#include <QtCore/QStringList>
#include <QtGui/QGuiApplication>
#include <QtGui/QIcon>
#include <utility>

#include "app/product_settings.h"
#include "platform/linux/runtime/bounded_process.h"
#include "platform/linux/updates/linux_software_updater.h"
#include "platform/linux/x11/x11_panels.h"
#include "platform/linux/x11/x11_window_hints.h"
#include "ui/windows/window_controller.h"

namespace orvane {
namespace {

/// The windows in the colours the desktop asks for.
class DesktopWindows : public WindowController {
 public:
  DesktopWindows(const WindowSettings& settings, Shell& shell,
                 std::shared_ptr<MemoryManager> manager)
      : WindowController(
            shell, std::move(manager),
            {.drawIcon =
                 [program = settings.moduleFolder + "/orvane-draw-icon"](
                     const IconRequest& request) { return outputOf(program, request.arguments()); },
             .skipTaskbar = skipTaskbar,
             .setShadowExtents = setShadowExtents,
             .forgetMinimized = forgetMinimized,
             .panelFrames = x11PanelFrames,
             .blendsTranslucentWindows = blendsTranslucentWindows},
            settings.facts),
        appearance_(settings.appearance) {
    // On desktops that Qt doesn't know its icon theme is hicolor, which has few applications'
    // icons.
    if (QIcon::themeName() == QLatin1String("hicolor"))
      QIcon::setFallbackThemeName(QStringLiteral("Adwaita"));
    QGuiApplication::setWindowIcon(QIcon(QStringLiteral(":/orvane/icons/orvane.svg")));
    appearance_.setChanged([this] { setAppearance(appearance_.settings()); });
    setAppearance(appearance_.settings());
  }
  DesktopWindows(const DesktopWindows&) = delete;
  DesktopWindows& operator=(const DesktopWindows&) = delete;
  ~DesktopWindows() override { appearance_.setChanged({}); }

 private:
  Appearance& appearance_;
};

}  // namespace
}  // namespace orvane

extern "C" Q_DECL_EXPORT void ORVANE_MAKE_WINDOWS(
    orvane::LoadedWindows& made, const orvane::WindowSettings& settings, orvane::Shell& shell,
    const std::shared_ptr<orvane::MemoryManager>& manager) {
  made.windows = std::make_unique<orvane::DesktopWindows>(settings, shell, manager);
  made.updaterController = std::make_unique<orvane::LinuxSoftwareUpdater>(orvane::UpdateSettings{
      .feedUrl = settings.updateFeed, .runningVersion = settings.facts.version});
}
