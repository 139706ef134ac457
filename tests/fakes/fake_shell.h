#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "app/application.h"
#include "app/status_icon.h"
#include "app/windows.h"

namespace orvane::fakes {

using Journal = std::vector<std::string>;

class RecordingApplication : public Application {
 public:
  explicit RecordingApplication(Journal& journal) : journal_(journal) {}
  void setActivationPolicy(ActivationPolicy policy) override {
    journal_.emplace_back(policy == ActivationPolicy::regular ? "regular" : "accessory");
  }
  void activate() override { journal_.emplace_back("activate"); }
  void terminate() override { journal_.emplace_back("terminate"); }

 private:
  Journal& journal_;
};

/// Windows that write down what is done to them.
class FakeWindows : public WindowFactory {
 public:
  explicit FakeWindows(Journal& journal) : journal_(journal) {}

  std::unique_ptr<Popover> makePopover(const std::shared_ptr<MemoryManager>& /*manager*/) override {
    return std::make_unique<FakePopover>(*this);
  }
  std::unique_ptr<MainWindow> makeMainWindow(const std::shared_ptr<MemoryManager>& /*manager*/,
                                             MainWindowClosures /*closures*/,
                                             MainWindowDelegate delegate) override {
    journal_.emplace_back("make window");
    mainWindowDelegate = std::move(delegate);
    auto window = std::make_unique<FakeMainWindow>(journal_);
    mainWindow = window.get();
    return window;
  }

  std::unique_ptr<UpdateWindow> makeUpdateWindow(const std::shared_ptr<MemoryManager>& /*manager*/,
                                                 UpdateClosures newClosures) override {
    updateClosures = std::move(newClosures);
    return std::make_unique<FakeUpdateWindow>(journal_);
  }

  UpdateClosures updateClosures;
  bool popoverShown = false;
  std::optional<PopoverClosures> closures;
  std::function<void()> whileShowing;
  MainWindow* mainWindow = nullptr;
  MainWindowDelegate mainWindowDelegate;

 private:
  class FakeUpdateWindow : public UpdateWindow {
   public:
    explicit FakeUpdateWindow(Journal& journal) : journal_(journal) {}
    void showChecking() override { journal_.emplace_back("checking"); }
    void showResult(const UpdateResult& /*result*/) override { journal_.emplace_back("result"); }
    void close() override { journal_.emplace_back("close update"); }

   private:
    Journal& journal_;
  };
  class FakePopover : public Popover {
   public:
    explicit FakePopover(FakeWindows& windows) : windows_(windows) {}
    [[nodiscard]] bool isShown() const override { return windows_.popoverShown; }
    void performClose() override { windows_.popoverShown = false; }
    void show(ScreenPoint /*item*/, PopoverClosures given) override {
      windows_.popoverShown = true;
      windows_.closures = std::move(given);
      if (windows_.whileShowing) windows_.whileShowing();
    }

   private:
    FakeWindows& windows_;
  };

  class FakeMainWindow : public MainWindow {
   public:
    explicit FakeMainWindow(Journal& journal) : journal_(journal) {}
    void makeKeyAndOrderFront() override { journal_.emplace_back("front"); }
    void orderOut() override { journal_.emplace_back("out"); }

   private:
    Journal& journal_;
  };

  Journal& journal_;
};

/// Icons that can be told apart by their width: 1 normal, 2 bolt, 1000 + n the number n.
class FakeIcons : public StatusIcons {
 public:
  [[nodiscard]] std::vector<IconPixmap> normal() const override {
    return hasResource ? of(1) : std::vector<IconPixmap>{};
  }
  [[nodiscard]] std::vector<IconPixmap> boosting() const override { return of(2); }
  [[nodiscard]] std::vector<IconPixmap> percentage(int percent) const override {
    return of(1000 + percent);
  }

  bool hasResource = true;

 private:
  static std::vector<IconPixmap> of(int width) {
    return {{.width = width, .height = 1, .pixels = {}}};
  }
};

}  // namespace orvane::fakes
