#pragma once

#include <QVariantMap>

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "core/memory_manager.h"
#include "platform/appearance.h"
#include "platform/software_updater.h"
#include "ui/icons/file_reader.h"

class QQmlEngine;
class QQuickView;

namespace orvane {

class MemoryModel;
class Theme;

/// What the popover asks of, and tells, the program around it. Called on the main thread; any may
/// be empty, which reads as false and does nothing.
struct PopoverClosures {
  std::function<bool()> isMainWindowVisible;
  std::function<void(bool)> setMainWindowVisible;
  std::function<void()> onBoost;
  std::function<void()> onCheckUpdates;
  std::function<void()> onQuit;
  std::function<bool()> launchAtLogin;
  std::function<void(bool)> setLaunchAtLogin;
};

/// What the main window asks of the program around it. Called on the main thread; any may be
/// empty, which does nothing.
struct MainWindowClosures {
  std::function<void(const std::string&)> revealFile = {};  ///< bytes of a path, as in the record
  std::function<void()> contactSupport = {};
  std::function<void()> checkForUpdates = {};
  std::function<void()> quit = {};
  std::function<void()> closeWindow = {};
  std::function<void()> minimize = {};
  std::function<void()> showAbout = {};
};

/// What the update window asks of the program around it. Called on the main thread; any may be
/// empty, which does nothing.
struct UpdateClosures {
  std::function<void()> tryAgain;
  std::function<void(const std::string&)> openPage;  ///< address of the download page
  std::function<void()> close;                       ///< also ends a running check
};

/// What "About Orvane" tells.
struct ProductFacts {
  std::string version;
  std::string builtOn;  ///< names and versions of the libraries
};

/// Makes the program's views over one model.
///
/// Main thread only. Nothing of QML is loaded before the first view is made. The views it made
/// must be destroyed before it.
class Views {
 public:
  /// Icons that applications name by path are read with `readFile`.
  Views(std::shared_ptr<MemoryManager> manager, FileReader readFile);
  Views(const Views&) = delete;
  Views& operator=(const Views&) = delete;
  ~Views();

  /// Light or dark for every view, now and later, switching live; none = as the palette says.
  void setColorScheme(std::optional<ColorScheme> scheme);

  /// Whether the desktop blends translucent windows (on X11: a compositor runs); windows without a
  /// frame have round corners then. False until told.
  void setTranslucentWindows(bool translucent);

  /// The popover's content in a window that is not shown yet. Its root item sets its own size (300
  /// points wide, as high as its content, changing while it is open), which the window follows.
  ///
  /// The root item has the property `bool menuOpen`: true while one of its menus, a transient
  /// window of its own, is open and may hold the focus; and the signal `closeRequested()`: the
  /// user pressed Escape.
  [[nodiscard]] std::unique_ptr<QQuickView> makePopoverView(PopoverClosures closures);

  /// The main window's content, 440 x 510 points, in a window that is not shown yet. It keeps its
  /// tab and its open details for as long as it lives.
  [[nodiscard]] std::unique_ptr<QQuickView> makeMainWindowView(MainWindowClosures closures);

  /// The update window's content, showing a check that runs; not shown yet. Its height follows what
  /// it has to say.
  [[nodiscard]] std::unique_ptr<QQuickView> makeUpdateView(UpdateClosures closures,
                                                           const std::string& runningVersion);
  /// Shows, in a view made by `makeUpdateView`, that a check runs (none) or how it ended.
  static void showUpdate(QQuickView& view, const std::optional<UpdateResult>& result);

  /// "About Orvane", not shown yet. `close` is called when the user is done with it.
  [[nodiscard]] std::unique_ptr<QQuickView> makeAboutView(const ProductFacts& facts,
                                                          std::function<void()> close);

 private:
  QQmlEngine& engine();
  Theme& theme();
  MemoryModel& model();
  /// A window whose root item is `file`, with `properties` as its properties.
  std::unique_ptr<QQuickView> makeView(const QString& file, const QVariantMap& properties);

  std::shared_ptr<MemoryManager> manager_;
  FileReader readFile_;
  std::optional<ColorScheme> scheme_;
  bool translucentWindows_ = false;
  std::unique_ptr<MemoryModel> model_;
  std::unique_ptr<QQmlEngine> engine_;
};

}  // namespace orvane
