#pragma once

#include <memory>
#include <string>
#include <vector>

#include "app/windows.h"
#include "platform/appearance.h"

namespace orvane {

/// The program's windows, whose code is loaded when the first of them is wanted: Qt Quick, the
/// views and the network are most of the program, and most days nobody opens one.
///
/// Main thread only. A module that can't be loaded is told on standard error, and there are no
/// windows then; the next one that is wanted tries again.
class LazyWindows : public WindowFactory {
 public:
  /// The module is looked for in `folders`, in this order. `appearance` must outlive the factory.
  LazyWindows(std::vector<std::string> folders, Appearance& appearance, ProductFacts facts);
  LazyWindows(const LazyWindows&) = delete;
  LazyWindows& operator=(const LazyWindows&) = delete;
  ~LazyWindows() override;

  /// Never null; what it shows is made, and the module loaded, when it is first shown.
  [[nodiscard]] std::unique_ptr<Popover> makePopover(
      const std::shared_ptr<MemoryManager>& manager) override;
  [[nodiscard]] std::unique_ptr<MainWindow> makeMainWindow(
      const std::shared_ptr<MemoryManager>& manager, MainWindowClosures closures,
      MainWindowDelegate delegate) override;
  [[nodiscard]] std::unique_ptr<UpdateWindow> makeUpdateWindow(
      const std::shared_ptr<MemoryManager>& manager, UpdateClosures closures) override;
  [[nodiscard]] std::unique_ptr<SoftwareUpdater> makeUpdater(UpdateSettings settings) override;

 private:
  class LazyPopover;

  /// The real factory; null when it can't be had.
  WindowFactory* loaded();

  std::vector<std::string> folders_;
  Appearance& appearance_;
  ProductFacts facts_;
  std::unique_ptr<WindowFactory> loaded_;
};

}  // namespace orvane
