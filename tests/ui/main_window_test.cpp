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
    for (int i = 0; i < count; ++i) {
      services_.applications.add(100 + i, "Application " + std::to_string(i), 1024 * megabyte);
    }
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

  setMemory(0, 0, 0, 0, 0);
  sample();
  EXPECT_EQ(text(item("percentage")), "0.0%") << "a machine without memory";
  EXPECT_EQ(accessibleName(item("freeBytesBar")), "Free 0.00 GB (0.0%)");
  for (const auto* bar : view_->findChildren<ShareBar*>()) {
    EXPECT_TRUE(eventually([bar] { return bar->share() == 0; }));
  }
}

TEST_F(MainWindowTest, OpenedDetailsScrollIntoViewAfterAPause) {
  addApplications(3);
  show();
  sample();
  EXPECT_EQ(item("scrollArea").property("furthest"), 0)
      << "nothing is hidden while they are closed";
  bool betweenPixels = false;
  QObject::connect(view_, &QQuickWindow::beforeSynchronizing, [&] {
    const double y = find("freeBytesBar") == nullptr ? 0 : place(item("chartCard")).y();
    betweenPixels = betweenPixels || y != std::round(y);
  });
  QElapsedTimer sinceClick;
  sinceClick.start();
  click(item("detailsToggle"));
  const auto scrolled = [this] { return item("scrollArea").property("contentY").toDouble() > 0; };
  ASSERT_TRUE(eventually(scrolled));
  EXPECT_GE(sinceClick.elapsed(), 380) << "coarse timers may fire 5 % early";
  const auto bottomGap = [this] {
    return std::abs(place(item("bottomAnchor")).bottom() - place(item("scrollArea")).bottom());
  };
  EXPECT_TRUE(eventually([&] { return bottomGap() <= 0.5; })) << bottomGap();
  EXPECT_FALSE(betweenPixels) << "what is painted there would stay blurred at its place";

  item("scrollArea").setProperty("contentY", 0);
  click(item("detailsToggle"));
  QTest::qWait(900);
  EXPECT_FALSE(scrolled());
  EXPECT_TRUE(eventually([this] { return find("freeBytesBar") == nullptr; }));
}

TEST_F(MainWindowTest, DrawsOnlyWhileSomethingMovesAndCanBeSeen) {
  show();
  EXPECT_TRUE(eventually([this] { return framesWithin(200) == 0; }));
  EXPECT_EQ(framesWithin(500), 0);

  click(item("boostButton"));
  ASSERT_TRUE(manager_->isProcessing());
  EXPECT_FALSE(item("boostButton").isEnabled());
  const int before = frames_;
  EXPECT_TRUE(eventually([&] { return frames_ >= before + 20; })) << frames_ - before;
  const int painted = arc("processingArcs").paintCount();
  const double turned = item("processingArcs").rotation();
  EXPECT_TRUE(eventually([&] { return item("processingArcs").rotation() != turned; }));
  EXPECT_EQ(arc("processingArcs").paintCount(), painted);

  view_->hide();
  QTest::qWait(50);
  const double stopped = item("processingArcs").rotation();
  EXPECT_EQ(framesWithin(300), 0);
  EXPECT_EQ(item("processingArcs").rotation(), stopped);
  services_.time.advance(Duration{2});
  EXPECT_TRUE(eventually([this] { return item("boostButton").isEnabled(); }));
}

TEST_F(MainWindowTest, UsageArcSpringsToANewFigure) {
  show();
  EXPECT_DOUBLE_EQ(arc("usageArc").to(), 0.5625);
  int steps = 0;
  QObject::connect(&arc("usageArc"), &GradientArc::toChanged, [&] {
    const double to = arc("usageArc").to();
    steps += to > 0.5625 && to != 0.875 ? 1 : 0;
  });
  setMemory(1024, 10240, 1024, 4096, 0);
  sample();
  EXPECT_TRUE(eventually([&] { return steps > 0 && arc("usageArc").to() == 0.875; })) << steps;
  setMemory(1023, 10241, 1024, 4096, 0);
  sample();
  EXPECT_DOUBLE_EQ(arc("usageArc").to(), 0.875 + 1.0 / 16384) << "a spring too small to be seen";

  view_->hide();
  setMemory(4096, 6144, 3072, 3072, 0);
  sample();
  EXPECT_DOUBLE_EQ(arc("usageArc").to(), 0.5625) << "moves though nobody sees it";
}

}  // namespace
}  // namespace orvane
