#pragma once

#include <QQuickView>
#include <cstdint>
#include <memory>
#include <vector>

#include "tests/fakes/fake_services.h"
#include "ui/views.h"

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

  /// Colours of the views that are made from now on.
  void setColors(ColorScheme scheme, bool roundWindows) {
    scheme_ = scheme;
    roundWindows_ = roundWindows;
  }

  /// Memory of the next samples. Usage is exact to 0.01 %.
  void setMemory(const MachineMemory& memory);
  /// 16 GB of which `percent` are used.
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
  Views& views();

  /// What the popover's closures read and write.
  bool mainWindowVisible = false;
  bool launchAtLogin = false;
  [[nodiscard]] PopoverClosures popoverClosures();

  /// Makes the popover the window of the preview.
  QQuickView& showPopover();
  /// Makes `window` the one the preview shows and takes the picture of.
  QQuickView& show(std::unique_ptr<QQuickView> window);
  [[nodiscard]] QQuickView* window() const { return window_.get(); }
  /// The item of that name in the window; never null: the preview ends with a message.
  [[nodiscard]] QQuickItem& item(const char* name) const;

  /// The window of which the picture is taken instead, such as an open menu.
  void setPictured(QQuickWindow* window) { pictured_ = window; }
  [[nodiscard]] QQuickWindow* pictured() const { return pictured_ ? pictured_ : window_.get(); }

 private:
  fakes::FakeServices services_;
  std::shared_ptr<MemoryManager> manager_;
  std::unique_ptr<Views> views_;
  std::unique_ptr<QQuickView> window_;
  QQuickWindow* pictured_ = nullptr;
  ColorScheme scheme_ = ColorScheme::light;
  bool roundWindows_ = true;
};

}  // namespace orvane::preview
