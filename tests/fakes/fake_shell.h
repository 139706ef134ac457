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
#include "tests/fakes/fake_software_updater.h"

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
  std::unique_ptr<SoftwareUpdater> makeUpdater(UpdateSettings /*settings*/) override {
    auto made = std::make_unique<FakeSoftwareUpdater>();
    updater = made.get();
    return made;
  }

  UpdateClosures updateClosures;
  FakeSoftwareUpdater* updater = nullptr;
  bool popoverShown = false;
  std::optional<PopoverClosures> closures;
  MainWindow* mainWindow = nullptr;
  MainWindowDelegate mainWindowDelegate;

 private:
  struct FakeUpdateWindow : UpdateWindow {
    explicit FakeUpdateWindow(Journal& to) : journal(to) {}
    void showChecking() override { journal.emplace_back("checking"); }
    void showResult(const UpdateResult& /*result*/) override { journal.emplace_back("result"); }
    void close() override { journal.emplace_back("close update"); }
    Journal& journal;
  };

  struct FakePopover : Popover {
    explicit FakePopover(FakeWindows& of) : windows(of) {}
    [[nodiscard]] bool isShown() const override { return windows.popoverShown; }
    void performClose() override { windows.popoverShown = false; }
    void show(ScreenPoint /*item*/, PopoverClosures given) override {
      windows.popoverShown = true;
      windows.closures = std::move(given);
    }
    FakeWindows& windows;
  };

  struct FakeMainWindow : MainWindow {
    explicit FakeMainWindow(Journal& to) : journal(to) {}
    void makeKeyAndOrderFront() override { journal.emplace_back("front"); }
    void orderOut() override { journal.emplace_back("out"); }
    Journal& journal;
  };

  Journal& journal_;
};

/// Icons that can be told apart by their width: 1 normal, 2 bolt, 1000 + n the number n.
class FakeIcons : public StatusIcons {
 public:
  [[nodiscard]] std::vector<IconPixmap> normal() const override { return of(1); }
  [[nodiscard]] std::vector<IconPixmap> boosting() const override { return of(2); }
  [[nodiscard]] std::vector<IconPixmap> percentage(int percent) const override {
    return of(1000 + percent);
  }

 private:
  static std::vector<IconPixmap> of(int width) {
    return {{.width = width, .height = 1, .pixels = {}}};
  }
};

}  // namespace orvane::fakes
