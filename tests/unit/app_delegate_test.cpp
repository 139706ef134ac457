#include "app/app_delegate.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <utility>

#include "app/support_request.h"
#include "testing/fake_login_item.h"
#include "testing/fake_services.h"
#include "testing/fake_shell.h"
#include "testing/fake_status_bar.h"

namespace orvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using fakes::Journal;

class AppDelegateTest : public testing::Test {
 protected:
  void launch(StartWish wish = StartWish::plain) {
    delegate_ = AppDelegate::create({.model = fakes_.services(),
                                     .application = application_,
                                     .statusBar = panel_,
                                     .loginItem = loginItem_,
                                     .desktop = opener_,
                                     .loadWindows = windows_.loader(),
                                     .icons = icons_,
                                     .panelScheme = [this] { return panelScheme_; },
                                     .supportAddress = supportAddress_});
    delegate_->applicationDidFinishLaunching(wish);
  }

  [[nodiscard]] int shownIcon() const { return panel_.icon.at(0).width; }
  [[nodiscard]] const StatusItemMenuEntry& entry(const std::string& label) const {
    for (const auto& entry : panel_.menu)
      if (entry.label == label) return entry;
    throw std::out_of_range(label);
  }
  void clickItem() const { panel_.action({}); }
  Journal takeJournal() { return std::exchange(journal_, {}); }

  Journal journal_;
  fakes::FakeServices fakes_;
  fakes::RecordingApplication application_{journal_};
  fakes::FakeStatusBar panel_;
  fakes::FakeLoginItem loginItem_;
  fakes::RecordingDesktopOpener opener_;
  fakes::FakeWindowLoader windows_{journal_};
  fakes::FakeIcons icons_;
  std::optional<ColorScheme> panelScheme_;
  std::string supportAddress_ = "help@example.org";
  std::shared_ptr<AppDelegate> delegate_;
};

TEST_F(AppDelegateTest, LaunchShowsTheMainWindowFirstAndThenOnlyIfItWasOpen) {
  launch();
  EXPECT_THAT(takeJournal(),
              ElementsAre("accessory", "regular", "load windows", "activate", "show window"));
  EXPECT_THAT(fakes_.preferences.writes,
              ElementsAre("NSQuitAlwaysKeepsWindows=false", "hasLaunchedBefore=true",
                          "mainWindowVisible=true"));
  launch();
  EXPECT_TRUE(delegate_->isMainWindowVisible());
  takeJournal();
  fakes_.preferences.booleans["mainWindowVisible"] = false;
  launch();
  EXPECT_THAT(journal_, ElementsAre("accessory"));
  EXPECT_FALSE(delegate_->isMainWindowVisible());
}

TEST_F(AppDelegateTest, AStartIsForWhatItsOptionSays) {
  launch(StartWish::hidden);
  EXPECT_THAT(journal_, ElementsAre("accessory"));
  EXPECT_THAT(fakes_.preferences.writes, ElementsAre("NSQuitAlwaysKeepsWindows=false"))
      << "the first launch is still to come";
  delegate_->fulfil(StartWish::hidden);
  delegate_->fulfil(StartWish::showPopover);
  EXPECT_TRUE(windows_.windows->isPopoverShown());
  EXPECT_FALSE(delegate_->isMainWindowVisible());
  for (const StartWish wish : {StartWish::plain, StartWish::showWindow}) {
    delegate_->hideMainWindow();
    delegate_->fulfil(wish);
    EXPECT_TRUE(delegate_->isMainWindowVisible());
  }
  delegate_->fulfil(StartWish::quit);
  EXPECT_EQ(journal_.back(), "terminate");
  fakes_.preferences.booleans["mainWindowVisible"] = false;
  launch(StartWish::showWindow);
  EXPECT_TRUE(delegate_->isMainWindowVisible());
}

TEST_F(AppDelegateTest, WithoutAPanelTheMainWindowOpensOnceAfterTenSeconds) {
  fakes_.preferences.booleans["hasLaunchedBefore"] = true;
  for (const auto& [wish, hasPanel, opens] :
       std::vector<std::tuple<StartWish, bool, bool>>{{StartWish::plain, true, false},
                                                      {StartWish::hidden, false, false},
                                                      {StartWish::plain, false, true}}) {
    panel_.isShown = hasPanel;
    launch(wish);
    fakes_.time.advance(Duration{9.5});
    EXPECT_FALSE(delegate_->isMainWindowVisible());
    fakes_.time.advance(Duration{1.0});
    EXPECT_EQ(delegate_->isMainWindowVisible(), opens) << hasPanel;
  }
  delegate_->hideMainWindow();
  fakes_.time.advance(Duration{60.0});
  EXPECT_FALSE(delegate_->isMainWindowVisible());
}

TEST_F(AppDelegateTest, AsksForNotifications) {
  fakes_.notifications.granted = false;
  launch();
  ASSERT_EQ(fakes_.notifications.authorizations.size(), 1U);
  const AuthorizationOptions options = fakes_.notifications.authorizations.front();
  EXPECT_TRUE(options.alert && options.badge && options.sound);
  EXPECT_THAT(fakes_.output.lines, IsEmpty()) << "a refusal is no error";
  const PresentationOptions shown = delegate_->willPresentNotification({});
  EXPECT_TRUE(shown.banner && shown.sound) << "also while the program is in front";
}

TEST_F(AppDelegateTest, TheTitleIsTheTruncatedUsageOfTheCurrentSampleAtEachTick) {
  fakes_.counters.counts.reset();
  launch();
  EXPECT_EQ(panel_.title, "") << "no sample yet";
  delegate_->boostMemoryFromMenu();
  EXPECT_EQ(shownIcon(), 1) << "no lasting bolt";
  for (const auto& [usage, title] : {std::pair(57.9, " 57%"), {0.4, " 0%"}, {100.0, " 100%"}}) {
    fakes_.counters.setUsage(usage);
    launch();
    EXPECT_EQ(panel_.title, title);
  }
  fakes_.counters.setUsage(30);
  delegate_->memoryManager()->updateMemoryStats();
  EXPECT_EQ(panel_.title, " 100%") << "nothing but the title's own timer changes it";
  fakes_.time.advance(Duration{5.0});
  EXPECT_EQ(panel_.title, " 30%");
  EXPECT_EQ(panel_.toolTip, "Memory usage: 30%");
  fakes_.counters.bytesPerPage = 256U << 10U;
  delegate_->memoryManager()->updateMemoryStats();
  EXPECT_EQ(panel_.menu.front().text(), "Memory: 30% (7.3 of 24.4 GB)");
  fakes_.counters.counts.reset();
  fakes_.time.advance(Duration{20.0});
  EXPECT_EQ(panel_.title, " 30%");
}

TEST_F(AppDelegateTest, TheIconIsTheNumberWhereThePanelDrawsNoLabel) {
  const auto showUsage = [this](double percent) {
    fakes_.counters.setUsage(percent);
    fakes_.time.advance(Duration{10.0});
    return panel_.iconCount;
  };
  fakes_.counters.setUsage(42);
  launch();
  EXPECT_EQ(shownIcon(), 1042);
  const int drawn = panel_.iconCount;
  EXPECT_EQ(showUsage(42), drawn) << "the number stayed the same";
  EXPECT_EQ(showUsage(43), drawn + 1);
  EXPECT_EQ(shownIcon(), 1043);
  panel_.drawsLabel = true;
  panel_.hostChanged();
  EXPECT_EQ(shownIcon(), 1);
  EXPECT_EQ(showUsage(44), drawn + 2);
  panelScheme_ = ColorScheme::dark;
  EXPECT_EQ(showUsage(44), drawn + 2) << "asked at each tick";
  fakes_.time.advance(Duration{60.0});
  EXPECT_EQ(panel_.iconCount, drawn + 3) << "the panel looks different";
  EXPECT_EQ(shownIcon(), 10001);
}

TEST_F(AppDelegateTest, TheBoltStandsFromTheRequestUntilTheBoostIsComplete) {
  launch();
  windows_.shell->boostMemoryFromMenu();
  EXPECT_EQ(shownIcon(), 2);
  EXPECT_TRUE(delegate_->memoryManager()->isProcessing());
  fakes_.counters.setUsage(40);
  delegate_->memoryManager()->updateMemoryStats();
  delegate_->updateStatusTitle();
  EXPECT_EQ(shownIcon(), 2);
  fakes_.time.advance(Duration{2.0});
  EXPECT_EQ(shownIcon(), 1040);
}

TEST_F(AppDelegateTest, ClosingTheMainWindowHidesItAndOnlyThatWindowCounts) {
  launch();
  takeJournal();
  windows_.shell->windowWillClose(WindowKind::main);
  EXPECT_FALSE(fakes_.preferences.booleans["mainWindowVisible"]);
  entry("Show Window").activate();
  EXPECT_TRUE(entry("Show Window").isChecked());
  entry("Show Window").activate();
  EXPECT_THAT(takeJournal(), ElementsAre("hide window", "accessory", "regular", "activate",
                                         "show window", "hide window", "accessory"));

  const auto writes = fakes_.preferences.writes;
  windows_.shell->windowDidBecomeKey(WindowKind::about);
  EXPECT_FALSE(delegate_->isMainWindowVisible());
  windows_.shell->windowDidBecomeKey(WindowKind::main);
  for (const WindowKind other : {WindowKind::popover, WindowKind::update, WindowKind::about})
    windows_.shell->windowWillClose(other);
  EXPECT_TRUE(delegate_->isMainWindowVisible());
  EXPECT_THAT(journal_, IsEmpty());
  EXPECT_EQ(fakes_.preferences.writes, writes);
}

TEST_F(AppDelegateTest, WindowsAreLoadedWhenTheFirstIsWantedAndAgainAfterAFailure) {
  fakes_.preferences.booleans["hasLaunchedBefore"] = true;
  launch();
  windows_.fails = true;
  clickItem();
  entry("Check for Updates...").activate();
  delegate_->showMainWindow();
  delegate_->hideMainWindow();
  EXPECT_FALSE(delegate_->isMainWindowVisible());
  EXPECT_THAT(takeJournal(), ElementsAre("accessory", "no windows", "no windows", "regular",
                                         "no windows", "accessory"));
  EXPECT_FALSE(fakes_.preferences.booleans.contains("mainWindowVisible"));
  EXPECT_EQ(fakes_.notifications.requests.size(), 3U) << "no click comes to nothing";
  fakes_.time.advance(Duration{0.5});
  EXPECT_THAT(takeJournal(), ElementsAre("start anew p", "start anew w", "start anew w"));
  windows_.fails = false;
  for (const bool shown : {true, false, true}) {
    clickItem();
    EXPECT_EQ(windows_.windows->isPopoverShown(), shown);
  }
  EXPECT_THAT(journal_, ElementsAre("load windows"));
  windows_.windows->broken = true;
  delegate_->showMainWindow();
  EXPECT_FALSE(delegate_->isMainWindowVisible()) << "what it is made of is missing";
  EXPECT_EQ(fakes_.notifications.requests.size(), 4U);
}

TEST_F(AppDelegateTest, ASupportAddressThatIsNoneIsPrinted) {
  for (const char* address : {"@", "support", "support@", "@orvane.example", "a b@orvane.example",
                              "a@b@c", "a?cc=x@b", "a&b@c", "a@b.example,c@d", "a%0A@b", "é@b"}) {
    EXPECT_EQ(supportMailUrl(address), std::nullopt) << address;
  }
  supportAddress_ = "";
  launch();
  delegate_->openSupportEmail();
  EXPECT_THAT(opener_.urls, IsEmpty());
  EXPECT_EQ(fakes_.output.lines.back(), "Failed to create mailto URL");
}

TEST_F(AppDelegateTest, NothingHappensOnceTheDelegateIsGone) {
  launch();
  clickItem();
  ASSERT_EQ(fakes_.notifications.delegate, delegate_.get());
  delegate_.reset();
  EXPECT_EQ(fakes_.notifications.delegate, nullptr);
  takeJournal();
  for (const StatusItemMenuEntry& entry : panel_.menu) {
    if (entry.activate) entry.activate();
    EXPECT_FALSE(entry.isChecked && entry.isChecked()) << entry.label;
  }
  clickItem();
  fakes_.time.advance(Duration{20.0});
  fakes_.notificationCentre.post("BoostCompleted");
  EXPECT_THAT(journal_, IsEmpty());
}

TEST_F(AppDelegateTest, AnUpdateCheckEndsWithItsWindow) {
  launch();
  takeJournal();
  entry("Check for Updates...").activate();
  EXPECT_TRUE(windows_.updater->answer(UpdateNotNeeded{}));
  windows_.shell->checkForUpdates();
  windows_.shell->windowWillClose(WindowKind::update);
  EXPECT_FALSE(windows_.updater->answer(UpdateNotNeeded{})) << "cancelled";
  windows_.shell->openUrl("https://orvane.example/");
  EXPECT_THAT(opener_.urls, ElementsAre("https://orvane.example/"));
  EXPECT_THAT(journal_, ElementsAre("checking", "result", "checking"));
}

}  // namespace
}  // namespace orvane
