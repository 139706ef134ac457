#include <QElapsedTimer>
#include <cmath>

#include "tests/ui/view_case.h"
#include "ui/painted/gradient_arc.h"
#include "ui/painted/share_bar.h"

namespace orvane {
namespace {

class MainWindowTest : public ViewCase {
 protected:
  void addApplications(int count) {
    for (int i = 0; i < count; ++i)
      services_.applications.add(100 + i, "Application " + std::to_string(i), 1024 * megabyte);
  }
  void show() {
    createWindows();
    createMainWindow();
    QObject::connect(view_, &QQuickWindow::frameSwapped, [this] { ++frames_; });
    ASSERT_TRUE(QTest::qWaitForWindowExposed(view_));
    QTest::qWait(100);
  }
  [[nodiscard]] int framesWithin(int milliseconds) {
    const int before = frames_;
    QTest::qWait(milliseconds);
    return frames_ - before;
  }
  [[nodiscard]] GradientArc& arc(const char* name) const {
    const auto inside = item(name).childItems();
    return *qobject_cast<GradientArc*>(inside.isEmpty() ? &item(name) : inside.front());
  }

  int frames_ = 0;
};

TEST_F(MainWindowTest, FiguresAreThoseOfTheSample) {
  addApplications(3);
  show();
  sample();
  press(item("detailsToggle"));
  expectSymbols();
  EXPECT_EQ(view_->size(), QSize(440, 510));
  const auto cards = item("cards").childItems();
  EXPECT_EQ(accessibleName(*cards[0]), "Free 7.0 GB");
  EXPECT_EQ(accessibleName(*cards[1]), "Used 9.0 GB");
  EXPECT_EQ(accessibleName(*cards[2]), "Total 16.0 GB");
  EXPECT_EQ(text(item("percentage")), "56.2%");
  EXPECT_EQ(accessibleName(item("freeBytesBar")), "Free 4.00 GB (25.0%)");
  EXPECT_EQ(accessibleName(item("compressedBytesBar")), "Compressed 1.00 GB");
  EXPECT_EQ(accessibleName(item("topConsumers")), "Top 3 apps use 33.3% of memory");

  memory_ = {0, 0, 0, 0, 0};
  sample();
  EXPECT_EQ(text(item("percentage")), "0.0%") << "a machine without memory";
  EXPECT_EQ(accessibleName(item("freeBytesBar")), "Free 0.00 GB (0.0%)");
  for (const auto* bar : view_->findChildren<ShareBar*>())
    EXPECT_TRUE(waitUntil([bar] { return bar->share() == 0; }));
}

TEST_F(MainWindowTest, OpenedDetailsScrollIntoViewAfterAPause) {
  addApplications(3);
  show();
  sample();
  EXPECT_EQ(item("scrollArea").property("furthest"), 0) << "nothing is hidden so far";
  bool betweenPixels = false;
  QObject::connect(view_, &QQuickWindow::beforeSynchronizing, [&] {
    const double y = find("freeBytesBar") == nullptr ? 0 : place(item("chartCard")).y();
    betweenPixels = betweenPixels || y != std::round(y);
  });
  QElapsedTimer sinceClick;
  sinceClick.start();
  click(item("detailsToggle"));
  const auto scrolled = [this] { return item("scrollArea").property("contentY").toDouble() > 0; };
  ASSERT_TRUE(waitUntil(scrolled));
  EXPECT_GE(sinceClick.elapsed(), 380) << "coarse timers may fire 5 % early";
  const auto bottomGap = [this] {
    return std::abs(place(item("bottomAnchor")).bottom() - place(item("scrollArea")).bottom());
  };
  EXPECT_TRUE(waitUntil([&] { return bottomGap() <= 0.5; })) << bottomGap();
  EXPECT_FALSE(betweenPixels) << "what is painted there would stay blurred at its place";

  item("scrollArea").setProperty("contentY", 0);
  click(item("detailsToggle"));
  QTest::qWait(900);
  EXPECT_FALSE(scrolled());
  EXPECT_TRUE(waitUntil([this] { return find("freeBytesBar") == nullptr; }));
}

TEST_F(MainWindowTest, DrawsOnlyWhileSomethingMovesAndCanBeSeen) {
  show();
  EXPECT_TRUE(waitUntil([this] { return framesWithin(200) == 0; }));
  EXPECT_EQ(framesWithin(500), 0);

  click(item("boostButton"));
  ASSERT_TRUE(manager_->isProcessing());
  EXPECT_FALSE(item("boostButton").isEnabled());
  const int before = frames_;
  EXPECT_TRUE(waitUntil([&] { return frames_ >= before + 20; })) << frames_ - before;
  const int painted = arc("processingArcs").paintCount();
  const double turned = item("processingArcs").rotation();
  EXPECT_TRUE(waitUntil([&] { return item("processingArcs").rotation() != turned; }));
  EXPECT_EQ(arc("processingArcs").paintCount(), painted);

  view_->hide();
  QTest::qWait(50);
  const double stopped = item("processingArcs").rotation();
  EXPECT_EQ(framesWithin(300), 0);
  EXPECT_EQ(item("processingArcs").rotation(), stopped);
  services_.time.advance(Duration{2});
  EXPECT_TRUE(waitUntil([this] { return item("boostButton").isEnabled(); }));
}

TEST_F(MainWindowTest, UsageArcSpringsToANewFigure) {
  show();
  EXPECT_DOUBLE_EQ(arc("usageArc").to(), 0.5625);
  int steps = 0;
  QObject::connect(&arc("usageArc"), &GradientArc::toChanged, [&] {
    const double to = arc("usageArc").to();
    steps += to > 0.5625 && to != 0.875 ? 1 : 0;
  });
  memory_ = {1024, 10240, 1024, 4096, 0};
  sample();
  EXPECT_TRUE(waitUntil([&] { return steps > 0 && arc("usageArc").to() == 0.875; })) << steps;
  memory_ = {1023, 10241, 1024, 4096, 0};
  sample();
  EXPECT_DOUBLE_EQ(arc("usageArc").to(), 0.875 + 1.0 / 16384) << "a spring too small to be seen";

  view_->hide();
  memory_ = {4096, 6144, 3072, 3072, 0};
  sample();
  EXPECT_DOUBLE_EQ(arc("usageArc").to(), 0.5625) << "moves though nobody sees it";
}

class WindowsTest : public ViewCase {
 protected:
  WindowsTest() { createWindows(); }

  void pressKey(WindowKind kind, Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(windows_->window(kind), key, modifiers);
    settle();
  }
};

TEST_F(WindowsTest, TheUpdateWindowFollowsTheCheckAndItsButtonsAnswer) {
  const auto window = [this] { return windows_->window(WindowKind::update); };
  windows_->showUpdateResult(UpdateNotNeeded{});
  EXPECT_EQ(window(), nullptr) << "a check whose window was closed";
  windows_->showUpdateCheck();
  const QQuickWindow* opened = window();
  const int height = opened->height();
  pressKey(WindowKind::update, Qt::Key_Return);
  EXPECT_EQ(window(), opened) << "there is nothing to answer yet";
  windows_->showUpdateResult(UpdateError{.message = "No answer."});
  pressKey(WindowKind::update, Qt::Key_Return);
  EXPECT_EQ(shell_.checks, 1);
  windows_->showUpdateCheck();
  EXPECT_EQ(window(), opened);
  windows_->showUpdateResult(UpdateOffer{.version = "2.0",
                                         .downloadBytes = std::nullopt,
                                         .notes = "News.",
                                         .downloadPage = "https://orvane.example/"});
  EXPECT_TRUE(waitUntil([&] { return window()->height() > height; }));
  EXPECT_EQ(window()->maximumSize(), window()->size());
  pressKey(WindowKind::update, Qt::Key_Return);
  EXPECT_EQ(window(), nullptr);
  EXPECT_EQ(shell_.urls, std::vector<std::string>{"https://orvane.example/"});
  EXPECT_EQ(shell_.closed, std::vector{WindowKind::update});
}

TEST_F(WindowsTest, EscapeAndControlWCloseAndOneOpensOnlyOnce) {
  for (const auto& [key, modifiers] : {std::pair(Qt::Key_Escape, Qt::KeyboardModifiers()),
                                       {Qt::Key_W, Qt::ControlModifier},
                                       {Qt::Key_Return, Qt::KeyboardModifiers()}}) {
    windows_->showAbout();
    const QQuickWindow* opened = windows_->window(WindowKind::about);
    windows_->showAbout();
    EXPECT_EQ(windows_->window(WindowKind::about), opened);
    ASSERT_TRUE(QTest::qWaitForWindowActive(windows_->window(WindowKind::about)));
    pressKey(WindowKind::about, key, modifiers);
    EXPECT_EQ(windows_->window(WindowKind::about), nullptr) << key;
  }
}

}  // namespace
}  // namespace orvane
