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
  struct State {
    std::string title;
    std::vector<IconPixmap> icon;
    std::string toolTip;
    std::function<void(ScreenPoint)> action;
    std::vector<StatusItemMenuEntry> menu;
    std::function<void()> hostChanged;
    bool drawsLabel = false;
    int iconCount = 0;
  };

  std::unique_ptr<StatusBarItem> makeItem() override { return std::make_unique<Item>(state); }

  std::shared_ptr<State> state = std::make_shared<State>();

 private:
  class Item : public StatusBarItem {
   public:
    explicit Item(std::shared_ptr<State> state) : state_(std::move(state)) {}
    void setTitle(const std::string& title) override { state_->title = title; }
    void setIcon(std::vector<IconPixmap> icon) override {
      state_->icon = std::move(icon);
      ++state_->iconCount;
    }
    void setToolTip(const std::string& title, const std::string& /*text*/) override {
      state_->toolTip = title;
    }
    void setAction(std::function<void(ScreenPoint)> action) override {
      state_->action = std::move(action);
    }
    void setMenu(std::vector<StatusItemMenuEntry> entries) override {
      state_->menu = std::move(entries);
    }
    void refreshMenu() override {}
    [[nodiscard]] bool hostDrawsLabel() const override { return state_->drawsLabel; }
    void setHostChanged(std::function<void()> handler) override {
      state_->hostChanged = std::move(handler);
    }

   private:
    std::shared_ptr<State> state_;
  };
};

}  // namespace orvane::fakes
