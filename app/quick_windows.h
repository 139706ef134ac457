#pragma once

#include <memory>

#include "app/dialog_window.h"
#include "app/windows.h"
#include "platform/appearance.h"
#include "ui/views.h"

namespace orvane {

/// The program's windows, on Qt Quick, in the colours the desktop asks for. Must outlive them.
class QuickWindows : public WindowFactory {
 public:
  /// `appearance` must outlive the factory, which takes its handler.
  QuickWindows(Appearance& appearance, ProductFacts facts);
  QuickWindows(const QuickWindows&) = delete;
  QuickWindows& operator=(const QuickWindows&) = delete;
  ~QuickWindows() override;

  [[nodiscard]] std::unique_ptr<Popover> makePopover(
      const std::shared_ptr<MemoryManager>& manager) override;
  [[nodiscard]] std::unique_ptr<MainWindow> makeMainWindow(
      const std::shared_ptr<MemoryManager>& manager, MainWindowClosures closures,
      MainWindowDelegate delegate) override;
  [[nodiscard]] std::unique_ptr<UpdateWindow> makeUpdateWindow(
      const std::shared_ptr<MemoryManager>& manager, UpdateClosures closures) override;
  [[nodiscard]] std::unique_ptr<SoftwareUpdater> makeUpdater(UpdateSettings settings) override;

 private:
  Views& views(const std::shared_ptr<MemoryManager>& manager);
  void showAbout();

  Appearance& appearance_;
  ProductFacts facts_;
  std::unique_ptr<Views> views_;
  DialogWindow about_;
};

}  // namespace orvane
