#pragma once

#include <functional>
#include <string>
#include <vector>

#include "ui/windows/windows.h"

namespace orvane::fakes {

/// A program around the windows that keeps what they ask of it.
class RecordingShell : public Shell {
 public:
  void boostMemoryFromMenu() override {
    ++boosts;
    if (onBoost) onBoost();
  }
  void quitApp() override { ++quits; }
  void checkForUpdates() override { ++checks; }
  void openSupportEmail() override { ++supportRequests; }
  void openUrl(const std::string& address) override { urls.push_back(address); }
  void revealFile(const std::string& path) override { revealed.push_back(path); }
  [[nodiscard]] bool isMainWindowVisible() const override { return mainWindowVisible; }
  void setMainWindowVisible(bool visible) override { mainWindowVisible = visible; }
  [[nodiscard]] bool launchAtLogin() const override { return loginItem; }
  void setLaunchAtLoginPreference(bool enabled) override { loginItem = enabled; }
  void windowWillClose(WindowKind window) override { closed.push_back(window); }
  void windowDidBecomeKey(WindowKind /*window*/) override {}

  std::function<void()> onBoost;
  int boosts = 0;
  int quits = 0;
  int checks = 0;
  int supportRequests = 0;
  std::vector<std::string> urls;
  std::vector<std::string> revealed;
  std::vector<WindowKind> closed;
  bool mainWindowVisible = false;
  bool loginItem = false;
};

}  // namespace orvane::fakes
