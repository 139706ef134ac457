#pragma once

#include <QtQml/qqmlregistration.h>
#include <QElapsedTimer>
#include <QObject>
#include <QPoint>
#include <QQmlEngine>
#include <QQuickWindow>
#include <QRect>
#include <QVariantMap>

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "core/memory_manager.h"
#include "platform/appearance.h"
#include "ui/dialogs/update_texts.h"
#include "ui/icons/icon_provider.h"
#include "ui/model/memory_model.h"
#include "ui/windows/windows.h"

namespace orvane {

class Theme;

/// What windows and icons need of the desktop. Main thread only, but for the first.
struct DesktopFunctions {
  IconDrawer drawIcon;  ///< called on any thread
  /// Keeps a window that isn't shown yet out of taskbars.
  std::function<void(QWindow&)> skipTaskbar = [](QWindow&) {};
  /// Says how many device pixels around a window that isn't shown yet are its shadow.
  std::function<void(QWindow&, int)> setShadowExtents = [](QWindow&, int) {};
  /// Lets a hidden window come back as a window although it was minimised.
  std::function<void(QWindow&)> forgetMinimized = [](QWindow&) {};
  /// Where panels are, in device pixels, as far as the desktop tells.
  std::function<QList<QRect>()> panelFrames = [] { return QList<QRect>(); };
  /// Whether windows without a frame can have round corners (on X11: a compositor runs).
  std::function<bool()> blendsTranslucentWindows = [] { return false; };
};

/// Owns the QML engine and every window but popups, which belong to the item they lie at; QML
/// reaches the shell through it.
///
/// Main thread only. Nothing of QML is loaded before the first window. A window that closes is
/// destroyed; the main window is hidden, and keeps its place and its content's state.
class WindowController : public QObject, public Windows {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("made by the program")

  Q_PROPERTY(orvane::MemoryModel* model READ model CONSTANT)
  Q_PROPERTY(
      bool isMainWindowVisible READ isMainWindowVisible WRITE setMainWindowVisible NOTIFY changed)
  Q_PROPERTY(bool launchAtLogin READ launchAtLogin WRITE setLaunchAtLogin NOTIFY changed)
  /// What the update window says.
  Q_PROPERTY(orvane::UpdateTexts update READ update NOTIFY updateChanged)
  Q_PROPERTY(QString version READ version CONSTANT)
  Q_PROPERTY(QString builtOn READ builtOn CONSTANT)

 public:
  /// `shell` must outlive the controller.
  WindowController(Shell& shell, std::shared_ptr<MemoryManager> manager, DesktopFunctions desktop,
                   ProductFacts facts);
  WindowController(const WindowController&) = delete;
  WindowController& operator=(const WindowController&) = delete;
  ~WindowController() override;

  bool showPopover(ScreenPoint item) override;
  void closePopover() override;
  [[nodiscard]] bool isPopoverShown() const override;
  bool showMainWindow() override;
  void hideMainWindow() override;
  bool showUpdateCheck() override;
  void showUpdateResult(const UpdateResult& result) override;
  /// How every window looks, now and later; without a colour scheme as the desktop's palette says.
  /// Texts have the size of when they were made.
  void setAppearance(const AppearanceSettings& settings);

  /// The window of that kind; null when there is none.
  [[nodiscard]] QQuickWindow* window(WindowKind kind) const;

  // For QML.
  [[nodiscard]] MemoryModel* model() const { return model_.get(); }
  [[nodiscard]] bool isMainWindowVisible() const { return shell_.isMainWindowVisible(); }
  void setMainWindowVisible(bool visible);
  [[nodiscard]] bool launchAtLogin() const { return shell_.launchAtLogin(); }
  void setLaunchAtLogin(bool enabled);
  [[nodiscard]] UpdateTexts update() const;
  [[nodiscard]] QString version() const { return QString::fromStdString(facts_.version); }
  [[nodiscard]] QString builtOn() const { return QString::fromStdString(facts_.builtOn); }

  Q_INVOKABLE void boostMemoryFromMenu() { shell_.boostMemoryFromMenu(); }
  Q_INVOKABLE void checkForUpdates() { shell_.checkForUpdates(); }
  Q_INVOKABLE void openSupportEmail() { shell_.openSupportEmail(); }
  Q_INVOKABLE void quitApp() { shell_.quitApp(); }
  /// Shows the executable of an application in the desktop's file manager; nothing without a path.
  Q_INVOKABLE void revealExecutable(const orvane::ProcessRecord& record);
  Q_INVOKABLE void showAbout();
  /// Where panels are, as rectangles in device pixels.
  Q_INVOKABLE [[nodiscard]] QVariantList panelFrames() const;
  /// What the update window's primary button stands for: true when the window is done.
  Q_INVOKABLE [[nodiscard]] bool acceptUpdate();
  /// The user dismisses the popover; `left` when turning to something else.
  Q_INVOKABLE void dismissPopover(bool left);
  /// The user closes the main window.
  Q_INVOKABLE void closeMainWindow() { shell_.windowWillClose(WindowKind::main); }
  /// Lets windows read the properties again; they change outside too.
  Q_INVOKABLE void reload() { Q_EMIT changed(); }

  /// Ctrl+Q and Ctrl+U, in whichever window.
  bool eventFilter(QObject* watched, QEvent* event) override;

 Q_SIGNALS:
  void changed();
  void updateChanged();

 private:
  QQmlEngine& engine();
  Theme& theme();
  void applyAppearance();
  /// Frameless windows have round corners while a compositor runs, which may come and go.
  void followCompositor();
  /// A window of that QML file, not shown yet; null when it can't be made.
  QQuickWindow* make(WindowKind kind, const char* file, QVariantMap properties = {});
  /// One that is destroyed after it is closed.
  QQuickWindow* makeTransient(WindowKind kind, const char* file, QVariantMap properties = {});
  /// In the middle of the screen; one that is open comes to the front. False when it can't be made.
  bool showDialog(WindowKind kind, const char* file);
  void discard(WindowKind kind);

  Shell& shell_;
  std::shared_ptr<MemoryManager> manager_;
  DesktopFunctions desktop_;
  ProductFacts facts_;
  AppearanceSettings appearance_;
  std::optional<UpdateResult> result_;
  std::optional<QPoint> framePlace_;  ///< where the main window was hidden
  QElapsedTimer sinceDismissal_;
  std::unique_ptr<MemoryModel> model_;
  std::unique_ptr<QQmlEngine> engine_;
  std::map<WindowKind, std::unique_ptr<QQuickWindow>> windows_;
  std::vector<std::unique_ptr<QQuickWindow>> closed_;  ///< until the event loop's next turn
};

}  // namespace orvane
