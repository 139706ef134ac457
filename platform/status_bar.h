#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace orvane {

/// One picture in device pixels, 32 bits a pixel as 0xAARRGGBB, not premultiplied, rows from the
/// top, width * height of them.
struct IconPixmap {
  int width = 0;
  int height = 0;
  std::vector<std::uint32_t> pixels;

  bool operator==(const IconPixmap&) const = default;
};

/// A point on the screen in device pixels, from the top left corner of the whole desktop.
struct ScreenPoint {
  int x = 0;
  int y = 0;
};

/// One entry of the item's menu.
struct StatusItemMenuEntry {
  enum class Kind { action, toggle, divider, figure };

  Kind kind = Kind::action;
  std::string label = {};
  std::function<bool()> isChecked = {};    ///< toggles only; asked whenever the menu is shown
  std::function<void()> activate = {};     ///< actions and toggles only
  std::function<std::string()> text = {};  ///< a figure's label; asked while the menu is shown
};

/// One item in the panel's status area.
/// Threads: main thread only. Nothing here blocks or fails: while no panel shows status items the
/// latest state is kept and shown as soon as one comes.
class StatusBarItem {
 public:
  virtual ~StatusBarItem() = default;

  /// The text beside the icon, on panels that draw one; also the item's accessible title.
  virtual void setTitle(const std::string& title) = 0;

  /// The same drawing in several sizes.
  virtual void setIcon(std::vector<IconPixmap> icon) = 0;

  virtual void setToolTip(const std::string& title, const std::string& text) = 0;

  /// Left click. The point is where the panel says the item is, as a hint only.
  virtual void setAction(std::function<void(ScreenPoint)> action) = 0;

  /// Right click.
  virtual void setMenu(std::vector<StatusItemMenuEntry> entries) = 0;

  /// Asks the entries anew what they show, if the menu is open.
  virtual void refreshMenu() = 0;

  /// True while a panel shows the item.
  [[nodiscard]] virtual bool isShown() const = 0;

  /// True while a panel that draws labels shows the item.
  [[nodiscard]] virtual bool hostDrawsLabel() const = 0;

  /// Called whenever `hostDrawsLabel` may have changed.
  virtual void setHostChanged(std::function<void()> handler) = 0;
};

/// The desktop's status area.
class StatusBar {
 public:
  virtual ~StatusBar() = default;

  /// A new item, shown from now until it is destroyed; null when items can't be made at all.
  [[nodiscard]] virtual std::unique_ptr<StatusBarItem> makeItem() = 0;
};

}  // namespace orvane
