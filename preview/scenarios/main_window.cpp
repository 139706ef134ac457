#include <QQuickItem>
#include <string>

#include "preview/preview_stage.h"
#include "preview/scenario.h"

namespace orvane::preview {

namespace {

constexpr int transitionTime = 1400;  // the spring, the pause and the scroll

void showMain(PreviewStage& stage) {
  stage.showMainWindow();
}

/// Applications of which the first one uses `megabytes`, and each other one less than the last.
void addApplications(PreviewStage& stage, int count, double megabytes = 1400) {
  for (int i = 0; i < count; ++i) {
    stage.services().applications.add(1000 + i, "Application " + std::to_string(i + 1),
                                      static_cast<std::uint64_t>(megabytes * (1 - 0.085 * i))
                                          << 20U);
  }
}

void feedHistory(PreviewStage& stage, int samples, double from, double to) {
  for (int i = 0; i < samples; ++i) {
    stage.setUsage(samples > 1 ? from + (to - from) * i / (samples - 1) : to);
    if (i > 0) stage.advance(5);
    stage.manager();
  }
}

void waves(PreviewStage& stage) {
  for (int i = 0; i < 60; ++i) {
    stage.setUsage(55 + (i % 12 < 6 ? 3.0 : -2.0) * (i % 6) + i / 6.0);
    stage.manager();
    stage.advance(5);
  }
}

void openDetails(PreviewStage& stage) {
  showMain(stage);
  stage.item("content").setProperty("showDetailedView", true);
}

void openDetailsUnscrolled(PreviewStage& stage) {
  addApplications(stage, 10);
  waves(stage);
  openDetails(stage);
}

void comeBack(PreviewStage& stage) {
  openDetailsUnscrolled(stage);
  for (const int tab : {1, 0}) stage.item("content").setProperty("selectedTab", tab);
}

void machineOf(PreviewStage& stage, double gigabytes) {
  stage.setMemory({.free = 0.1 * gigabytes,
                   .active = 0.55 * gigabytes,
                   .inactive = 0.15 * gigabytes,
                   .wired = 0.2 * gigabytes,
                   .compressed = 0.05 * gigabytes});
  addApplications(stage, 3, 180 * gigabytes);  // two thirds of what is used
  stage.manager();
  stage.advance(5);
  openDetails(stage);
}

void smallMachine(PreviewStage& stage) {
  machineOf(stage, 2);
}

void largeMachine(PreviewStage& stage) {
  machineOf(stage, 12288);
}

void calm(PreviewStage& stage) {
  showMain(stage);
}

void high(PreviewStage& stage) {
  stage.setUsage(91.3);
  showMain(stage);
}

void boosting(PreviewStage& stage) {
  showMain(stage);
  stage.startBoost();
}

void shownWhileBoosting(PreviewStage& stage) {
  stage.startBoost();
  showMain(stage);
}

void noSample(PreviewStage& stage) {
  stage.failSampling();
  showMain(stage);
}

void keyboard(PreviewStage& stage) {
  showMain(stage);
  stage.item("tabs").forceActiveFocus(Qt::TabFocusReason);
}

void keyboardOnBoost(PreviewStage& stage) {
  showMain(stage);
  stage.item("boostButton").forceActiveFocus(Qt::TabFocusReason);
}

void rising(PreviewStage& stage) {
  addApplications(stage, 3);
  feedHistory(stage, 60, 8, 97);
  openDetails(stage);
}

void flat(PreviewStage& stage) {
  addApplications(stage, 2);
  feedHistory(stage, 60, 62, 62);
  openDetails(stage);
}

void twoPoints(PreviewStage& stage) {
  addApplications(stage, 1);
  feedHistory(stage, 2, 40, 70);
  openDetails(stage);
}

void onePoint(PreviewStage& stage) {
  feedHistory(stage, 1, 62, 62);
  openDetails(stage);
}

void totalZero(PreviewStage& stage) {
  stage.setMemory({.free = 0, .active = 0, .inactive = 0, .wired = 0, .compressed = 0});
  addApplications(stage, 3);
  stage.manager();
  stage.advance(5);
  openDetails(stage);
}

void usedZero(PreviewStage& stage) {
  stage.setMemory({.free = 12, .active = 0, .inactive = 4, .wired = 0, .compressed = 0});
  addApplications(stage, 3);
  stage.manager();
  stage.advance(5);
  openDetails(stage);
}

}  // namespace

std::vector<Scenario> mainWindowScenarios() {
  return {
      {"main", "main window at 56.25 %", calm},
      {"main-high", "main window at 91.3 %: warm colours", high},
      {"main-boosting", "main window while a boost runs", boosting, 1000},
      {"main-boosting-shown", "main window made while a boost runs: nothing moves",
       shownWhileBoosting},
      {"main-no-sample", "main window without a sample: only its tabs", noSample},
      {"main-keyboard", "main window with the keyboard on its tabs", keyboard},
      {"main-keyboard-boost", "main window with the keyboard on the boost button", keyboardOnBoost},
      {"main-details", "details just opened, not scrolled yet", openDetailsUnscrolled, 380},
      {"main-details-scrolled", "details with ten applications", openDetailsUnscrolled,
       transitionTime},
      {"main-details-back", "coming back to open details from the list", comeBack},
      {"main-2gb", "details of a machine of 2 GB", smallMachine, transitionTime},
      {"main-12tb", "details of a machine of 12 TB", largeMachine, transitionTime},
      {"main-details-rising", "details with 60 rising samples and three applications", rising,
       transitionTime},
      {"main-details-flat", "details with 60 equal samples and two applications", flat,
       transitionTime},
      {"main-details-two", "details with two samples and one application", twoPoints,
       transitionTime},
      {"main-details-one", "details with one sample and no applications", onePoint, transitionTime},
      {"main-total-zero", "details of a machine without memory", totalZero, transitionTime},
      {"main-used-zero", "details with nothing used", usedZero, transitionTime}};
}

}  // namespace orvane::preview
