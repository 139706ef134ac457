#pragma once

#include <QQuickWindow>
#include <cstdint>
#include <memory>
#include <vector>

#include "testing/fake_services.h"
#include "testing/recording_shell.h"
#include "ui/windows/window_controller.h"

namespace orvane::preview {

inline constexpr double gibibyte = 1073741824.0;

/// What the machine's memory is made of, in GB of 2^30 bytes.
struct MachineMemory {
  double free = 4, active = 6, inactive = 3, wired = 3, compressed = 1.2;
};

/// A desktop of fakes with the real model and the real views on it; a scenario sets it up.
class PreviewStage {
 public:
  PreviewStage();

  /// How the views look that are made from now on.
  void setAppearance(const AppearanceSettings& appearance, bool roundWindows) {
    appearance_ = appearance;
    roundWindows_ = roundWindows;
  }

  /// Memory of the next samples, in whole pages of 4 kB.
  void setMemory(const MachineMemory& memory);
  /// 15.625 GB, of which every whole percentage is a whole number of pages.
  void setUsage(double percent);
  /// No sample can be read from now on.
  void failSampling() { services_.counters.counts.reset(); }
  /// Lets the model's clock run, with its sampling.
  void advance(double seconds) { services_.time.advance(Duration{seconds}); }
  /// A boost that never ends.
  void startBoost();

  fakes::FakeServices& services() { return services_; }
  /// Made at the first call, with the services as they are then.
  const std::shared_ptr<MemoryManager>& manager();
  WindowController& windows();
  fakes::RecordingShell& shell() { return shell_; }

  void showPopover() { windows().showPopover({}); }
  void showMainWindow() { windows().showMainWindow(); }
  /// The window that the preview shows and takes the picture of.
  [[nodiscard]] QQuickWindow* window() const;
  /// The item of that name in the window; never null: the preview ends with a message.
  [[nodiscard]] QQuickItem& item(const char* name) const;

  /// The window of which the picture is taken instead, such as an open menu.
  void setPictured(QQuickWindow* window) { pictured_ = window; }
  [[nodiscard]] QQuickWindow* pictured() const { return pictured_ ? pictured_ : window(); }

 private:
  fakes::FakeServices services_;
  std::shared_ptr<MemoryManager> manager_;
  fakes::RecordingShell shell_;
  std::unique_ptr<WindowController> windows_;
  QQuickWindow* pictured_ = nullptr;
  AppearanceSettings appearance_{.colorScheme = ColorScheme::light};
  bool roundWindows_ = true;
};

}  // namespace orvane::preview
