#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/status_bar.h"

namespace orvane::fakes {

/// A panel with one item, whose latest state and call count a test reads.
class FakeStatusBar : public StatusBar {
 public:
  std::unique_ptr<StatusBarItem> makeItem() override { return std::make_unique<Item>(*this); }

  std::string title;
  std::vector<IconPixmap> icon;
  std::string toolTip;
  std::function<void(ScreenPoint)> action;
  std::vector<StatusItemMenuEntry> menu;
  std::function<void()> hostChanged;
  bool isShown = true;
  bool drawsLabel = false;
  int iconCount = 0;

 private:
  struct Item : StatusBarItem {
    explicit Item(FakeStatusBar& shownBy) : panel(shownBy) {}
    void setTitle(const std::string& text) override { panel.title = text; }
    void setIcon(std::vector<IconPixmap> to) override {
      panel.icon = std::move(to);
      ++panel.iconCount;
    }
    void setToolTip(const std::string& to, const std::string& /*text*/) override {
      panel.toolTip = to;
    }
    void setAction(std::function<void(ScreenPoint)> to) override { panel.action = std::move(to); }
    void setMenu(std::vector<StatusItemMenuEntry> to) override { panel.menu = std::move(to); }
    void refreshMenu() override {}
    [[nodiscard]] bool isShown() const override { return panel.isShown; }
    [[nodiscard]] bool hostDrawsLabel() const override { return panel.drawsLabel; }
    void setHostChanged(std::function<void()> to) override { panel.hostChanged = std::move(to); }

    FakeStatusBar& panel;
  };
};

}  // namespace orvane::fakes
