#pragma once

#include <functional>
#include <memory>

#include "core/memory_manager.h"
#include "platform/software_updater.h"
#include "platform/status_bar.h"
#include "ui/views.h"

namespace orvane {

/// The window under the status item. Transient: a click elsewhere or Escape closes it.
/// Threads: main thread only.
class Popover {
 public:
  virtual ~Popover() = default;

  /// Also true for a moment after a press elsewhere took the focus away and so closed it, where
  /// nobody can tell whether that press was the one on the item that the panel is about to report.
  [[nodiscard]] virtual bool isShown() const = 0;

  virtual void performClose() = 0;

  /// Shows new content beside the item; `item` is where the panel says the item is.
  virtual void show(ScreenPoint item, PopoverClosures closures) = 0;
};

/// The main window. Threads: main thread only.
class MainWindow {
 public:
  virtual ~MainWindow() = default;

  virtual void makeKeyAndOrderFront() = 0;

  /// Hides the window; `willClose` is not called.
  virtual void orderOut() = 0;
};

/// What the main window tells its delegate, naming itself.
struct MainWindowDelegate {
  std::function<void(const MainWindow&)> willClose;  ///< the user closes it; it hides by itself
  std::function<void(const MainWindow&)> didBecomeKey;
};

/// The window of an update check. Threads: main thread only.
class UpdateWindow {
 public:
  virtual ~UpdateWindow() = default;

  /// Opens the window, or brings it forward, on a check that runs.
  virtual void showChecking() = 0;

  /// Shows how the check ended; nothing when the window is closed by then.
  virtual void showResult(const UpdateResult& result) = 0;

  virtual void close() = 0;
};

/// Makes the program's windows over one model, and what only they need. They must be destroyed
/// before it.
class WindowFactory {
 public:
  virtual ~WindowFactory() = default;

  /// Null when windows can't be made.
  [[nodiscard]] virtual std::unique_ptr<Popover> makePopover(
      const std::shared_ptr<MemoryManager>& manager) = 0;

  /// A window that isn't shown yet; null when it can't be made. The window itself answers the
  /// closures for closing, minimizing and "About Orvane".
  [[nodiscard]] virtual std::unique_ptr<MainWindow> makeMainWindow(
      const std::shared_ptr<MemoryManager>& manager, MainWindowClosures closures,
      MainWindowDelegate delegate) = 0;

  /// A window that isn't shown yet; null when it can't be made.
  [[nodiscard]] virtual std::unique_ptr<UpdateWindow> makeUpdateWindow(
      const std::shared_ptr<MemoryManager>& manager, UpdateClosures closures) = 0;

  /// The check that the update window shows; null when windows can't be made.
  [[nodiscard]] virtual std::unique_ptr<SoftwareUpdater> makeUpdater(UpdateSettings settings) = 0;
};

}  // namespace orvane
