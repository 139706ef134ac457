#include "platform/linux/status_item/panel_host.h"

#include <algorithm>
#include <array>

namespace orvane {

PanelHost panelHost(std::string_view processName) {
  // The kernel cuts names after 15 bytes; so do these.
  static constexpr std::array<std::string_view, 6> hosts = {
      "mate-panel",       // its notification area
      "notification-ar",  // the same area in a process of its own
      "gnome-shell",      // with its status item extension
      "ayatana-indicat",  // the indicator service of several desktops
      "indicator-appli",  // its predecessor
      "unity-panel-ser",
  };
  // "panel-NUMBER-systray", one of Xfce's plugins.
  const bool isXfce = processName.starts_with("panel-") && processName.find("-systr") < 10;
  return {.drawsLabels = std::ranges::find(hosts, processName) != hosts.end(),
          .rereadsAll = isXfce,
          .awaitsOtherLabel = processName == "gnome-shell"};  // with GNOME 48's extension
}

}  // namespace orvane
