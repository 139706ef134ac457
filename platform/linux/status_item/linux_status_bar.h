#pragma once

#include <memory>

#include "platform/linux/bus/session_bus.h"
#include "platform/status_bar.h"

namespace orvane {

/// The status area of Linux desktops: items on the session bus that panels pick up.
///
/// Panels look for one item on a connection, so there is one item at a time; `makeItem` is null
/// while it lives. The bus must outlive the bar and its item.
class LinuxStatusBar : public StatusBar {
 public:
  explicit LinuxStatusBar(SessionBus& bus);

  [[nodiscard]] std::unique_ptr<StatusBarItem> makeItem() override;

 private:
  SessionBus& bus_;
  std::weak_ptr<void> current_;
};

}  // namespace orvane
