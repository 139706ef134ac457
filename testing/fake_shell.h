#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "app/application.h"
#include "app/status_icon.h"
#include "app/windows_module.h"
#include "testing/fake_software_updater.h"

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
  void startAnew(StartWish wish) override {
    journal_.emplace_back(std::string("start anew ") + static_cast<char>(wish));
  }

 private:
  Journal& journal_;
};

/// Windows that write down what is done to them.
class FakeWindows : public Windows {
 public:
  explicit FakeWindows(Journal& journal) : journal_(journal) {}

  bool showPopover(ScreenPoint /*item*/) override {
    popoverShown_ = !broken;
    return !broken;
  }
  void closePopover() override { popoverShown_ = false; }
  [[nodiscard]] bool isPopoverShown() const override { return popoverShown_; }
  bool showMainWindow() override { return note("show window"); }
  void hideMainWindow() override { journal_.emplace_back("hide window"); }
  bool showUpdateCheck() override { return note("checking"); }
  void showUpdateResult(const UpdateResult& /*result*/) override {
    journal_.emplace_back("result");
  }

  bool broken = false;  ///< no window can be made

 private:
  bool note(const char* shown) {
    journal_.emplace_back(broken ? "no window" : shown);
    return !broken;
  }

  Journal& journal_;
  bool popoverShown_ = false;
};

/// Loads such windows, unless it fails, and keeps hold of what it made.
struct FakeWindowLoader {
  explicit FakeWindowLoader(Journal& to) : journal(to) {}

  [[nodiscard]] WindowLoader loader() {
    return [this](Shell& given, const std::shared_ptr<MemoryManager>& /*manager*/) {
      journal.emplace_back(fails ? "no windows" : "load windows");
      if (fails) return LoadedWindows{};
      auto made = std::make_unique<FakeWindows>(journal);
      auto madeUpdater = std::make_unique<FakeSoftwareUpdater>();
      shell = &given;
      windows = made.get();
      updater = madeUpdater.get();
      return LoadedWindows{std::move(made), std::move(madeUpdater)};
    };
  }

  Journal& journal;
  bool fails = false;
  Shell* shell = nullptr;
  FakeWindows* windows = nullptr;
  FakeSoftwareUpdater* updater = nullptr;
};

/// Icons that can be told apart by their width: 1 normal, 2 bolt, 1000 + n the number n, and
/// 10,000 more for a dark panel.
class FakeIcons : public StatusIcons {
 public:
  [[nodiscard]] std::vector<IconPixmap> normal(std::optional<ColorScheme> panel) const override {
    return of(1, panel);
  }
  [[nodiscard]] std::vector<IconPixmap> boosting(std::optional<ColorScheme> panel) const override {
    return of(2, panel);
  }
  [[nodiscard]] std::vector<IconPixmap> percentage(
      int percent, std::optional<ColorScheme> panel) const override {
    return of(1000 + percent, panel);
  }

 private:
  static std::vector<IconPixmap> of(int width, std::optional<ColorScheme> panel) {
    const int more = panel == ColorScheme::dark ? 10000 : 0;
    return {{.width = width + more, .height = 1, .pixels = {}}};
  }
};

}  // namespace orvane::fakes
