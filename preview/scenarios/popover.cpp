#include <QGuiApplication>
#include <QQuickItem>

#include "preview/preview_stage.h"
#include "preview/scenario.h"

namespace orvane::preview {

namespace {

void calm(PreviewStage& stage) {
  stage.showPopover();
}

void threshold(PreviewStage& stage) {
  stage.setUsage(85.0);
  stage.showPopover();
}

void high(PreviewStage& stage) {
  stage.setUsage(85.01);
  stage.showPopover();
}

void critical(PreviewStage& stage) {
  stage.setUsage(99);
  stage.showPopover();
}

void noSample(PreviewStage& stage) {
  stage.failSampling();
  stage.showPopover();
}

void boosting(PreviewStage& stage) {
  stage.showPopover();
  stage.startBoost();
}

void openedWhileBoosting(PreviewStage& stage) {
  stage.startBoost();
  stage.showPopover();
}

void expand(PreviewStage& stage) {
  stage.showPopover();
  stage.item("statusMenu").setProperty("detailsShown", true);
}

void details(PreviewStage& stage) {
  expand(stage);
}

void compressedLarge(PreviewStage& stage) {
  stage.setMemory({.free = 0.2, .active = 13, .inactive = 0.8, .wired = 2, .compressed = 12.8});
  expand(stage);
}

void smallCounters(PreviewStage& stage) {
  stage.setMemory(
      {.free = 15.6, .active = 0.08, .inactive = 0.08, .wired = 0.08, .compressed = 0.08});
  expand(stage);
}

void smallMachine(PreviewStage& stage) {
  stage.setMemory({.free = 0.3, .active = 1.1, .inactive = 0.3, .wired = 0.3, .compressed = 0.4});
  expand(stage);
}

void largeMachine(PreviewStage& stage) {
  stage.setMemory(
      {.free = 1024, .active = 9216, .inactive = 1024, .wired = 1024, .compressed = 1100});
  expand(stage);
}

void totalZero(PreviewStage& stage) {
  stage.setMemory({.free = 0, .active = 0, .inactive = 0, .wired = 0, .compressed = 0});
  expand(stage);
}

void openMenu(PreviewStage& stage) {
  stage.showPopover();
  QMetaObject::invokeMethod(&stage.item("gearMenu"), "clicked");
  const auto windows = QGuiApplication::topLevelWindows();
  for (QWindow* window : windows) {
    if (window->transientParent() != nullptr && window->isVisible()) {
      stage.setPictured(qobject_cast<QQuickWindow*>(window));
    }
  }
}

void togglesOn(PreviewStage& stage) {
  stage.shell().mainWindowVisible = true;
  stage.shell().loginItem = true;
  openMenu(stage);
}

template <const char* button>
void keyboardOn(PreviewStage& stage) {
  stage.showPopover();
  stage.item(button).forceActiveFocus(Qt::TabFocusReason);
}
constexpr char boostButton[] = "boostButton";
constexpr char detailsButton[] = "detailsButton";
constexpr char gearMenu[] = "gearMenu";

}  // namespace

std::vector<Scenario> popoverScenarios() {
  return {
      {"calm", "popover at 56.25 %", calm},
      {"threshold", "popover at exactly 85 %: still cool colours", threshold},
      {"high", "popover at 85.01 %: warm colours", high},
      {"critical", "popover at 99 %", critical},
      {"no-sample", "popover without a sample: only its bottom bar", noSample},
      {"boosting", "popover while a boost runs", boosting, 450},
      {"boosting-opened", "popover opened while a boost runs: nothing spins", openedWhileBoosting},
      {"details", "popover with its details", details, 900},
      {"compressed-large", "details with much compressed memory", compressedLarge, 900},
      {"counters-small", "counters of 0.5 %", smallCounters, 900},
      {"machine-2gb", "details of a machine of 2 GB", smallMachine, 900},
      {"machine-12tb", "details of a machine of 12 TB", largeMachine, 900},
      {"total-zero", "details of a machine without memory", totalZero, 900},
      {"menu-open", "the popover's menu", openMenu},
      {"toggles-on", "the popover's menu with both toggles on", togglesOn},
      {"keyboard", "popover with the keyboard on the boost button", keyboardOn<boostButton>},
      {"keyboard-details", "popover with the keyboard on its chevron", keyboardOn<detailsButton>},
      {"keyboard-gear", "popover with the keyboard on its gear", keyboardOn<gearMenu>}};
}

}  // namespace orvane::preview
