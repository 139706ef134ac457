#include <gtest/gtest.h>

#include <QAccessible>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QQuickItem>
#include <QQuickView>
#include <QTest>
#include <cmath>
#include <memory>
#include <string>

#include "tests/fakes/fake_services.h"
#include "ui/painted/gradient_arc.h"
#include "ui/painted/share_bar.h"
#include "ui/views.h"

namespace orvane {
namespace {

constexpr int barHeight = 20;

class MainWindowTest : public testing::Test {
 protected:
  MainWindowTest() {
    services_.claims.refuses = true;  // a boost takes no real memory here
    services_.counters.bytesPerPage = 1U << 20U;
    setMemory(4096, 6144, 3072, 3072, 1228);
  }

  /// In MB.
  void setMemory(std::uint32_t free, std::uint32_t active, std::uint32_t inactive,
                 std::uint32_t wired, std::uint32_t compressed) {
    services_.counters.counts = PageCounts{.free = free,
                                           .active = active,
                                           .inactive = inactive,
                                           .wired = wired,
                                           .compressed = compressed};
  }
  void addApplications(int count) {
    for (int i = 0; i < count; ++i) {
      services_.applications.add(100 + i, "Application " + std::to_string(i), 1024ULL << 20U);
    }
  }
  void create() {
    manager_ = MemoryManager::create(services_.services());
    views_ = std::make_unique<Views>(manager_);
    views_->setColorScheme(ColorScheme::light);
    window_ = views_->makeMainWindowView({});
    QObject::connect(window_.get(), &QQuickWindow::frameSwapped, [this] { ++frames_; });
  }
  void show() {
    if (!window_) create();
    window_->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(window_.get()));
    QTest::qWait(100);
  }
  void sample() {
    services_.time.advance(samplingInterval);
    QCoreApplication::processEvents();
  }

  [[nodiscard]] QQuickItem* find(const char* name) const {
    return window_->rootObject()->findChild<QQuickItem*>(QLatin1String(name));
  }
  [[nodiscard]] QQuickItem& item(const char* name) const {
    QQuickItem* found = find(name);
    if (found == nullptr) qFatal("no item %s", name);
    return *found;
  }
  /// In the content view: below the menu bar.
  [[nodiscard]] QRectF place(const char* name) const {
    QQuickItem& found = item(name);
    return found.mapRectToScene(QRectF(QPointF(), found.size())).translated(0, -barHeight);
  }
  [[nodiscard]] QString accessibleName(QQuickItem* of) const {
    return QAccessible::queryAccessibleInterface(of)->text(QAccessible::Name);
  }
  void press(const char* name) const {
    auto* actions = QAccessible::queryAccessibleInterface(&item(name))->actionInterface();
    actions->doAction(QAccessibleActionInterface::pressAction());
  }
  void click(const char* name) const {
    QQuickItem& target = item(name);
    QTest::mouseClick(window_.get(), Qt::LeftButton, {},
                      target.mapToScene({target.width() - 3, target.height() / 2}).toPoint());
  }
  [[nodiscard]] int framesWithin(int milliseconds) {
    const int before = frames_;
    QTest::qWait(milliseconds);
    return frames_ - before;
  }

  fakes::FakeServices services_;
  std::shared_ptr<MemoryManager> manager_;
  std::unique_ptr<Views> views_;
  std::unique_ptr<QQuickView> window_;
  int frames_ = 0;
};

TEST_F(MainWindowTest, EverythingLiesAtItsPlace) {
  addApplications(3);
  show();
  sample();
  EXPECT_EQ(window_->size(), QSize(440, 510));
  EXPECT_EQ(place("tabs"), QRectF(20, 12, 400, 24));
  EXPECT_EQ(place("tabContent"), QRectF(0, 48, 440, 442));
  EXPECT_EQ(place("gauge"), QRectF(130, 48 + 10 + 20, 180, 180));
  EXPECT_EQ(place("cards").topLeft(), QPointF(20, 278));
  EXPECT_EQ(place("boostButton").topLeft(), QPointF(20, place("cards").bottom() + 20));
  EXPECT_EQ(place("boostButton").width(), 400);
  EXPECT_EQ(place("bottomAnchor").y(), place("boostButton").bottom() + 20);
  EXPECT_EQ(place("detailsToggle").bottom(), 490);
  EXPECT_EQ(item("scrollArea").property("furthest"), 0) << "nothing is hidden";
  EXPECT_EQ(find("freeBar"), nullptr);

  press("detailsToggle");
  QTest::qWait(1400);
  EXPECT_EQ(place("chartCard").topLeft(), QPointF(20, place("boostButton").bottom() + 20));
  EXPECT_EQ(place("plot").topLeft() - place("chartCard").topLeft(),
            QPointF(20, place("plot").y() - place("chartCard").y()));
  EXPECT_EQ(place("chart").size(), QSizeF(330, 100));
  EXPECT_EQ(place("plot").bottom() + 12, place("chartCard").bottom());
  EXPECT_EQ(place("freeBar").topLeft(), QPointF(20, place("chartCard").bottom() + 12));
  EXPECT_EQ(place("topConsumers").topLeft(), QPointF(20, place("compressedBar").bottom() + 12));
  EXPECT_EQ(place("bottomAnchor").y(), place("topConsumers").bottom() + 20);
}

TEST_F(MainWindowTest, FiguresAreThoseOfTheSample) {
  addApplications(3);
  show();
  sample();
  press("detailsToggle");
  QCoreApplication::processEvents();
  const auto cards = item("cards").childItems();
  EXPECT_EQ(accessibleName(cards[0]), QStringLiteral("Free 7.0 GB"));
  EXPECT_EQ(accessibleName(cards[1]), QStringLiteral("Used 9.0 GB"));
  EXPECT_EQ(accessibleName(cards[2]), QStringLiteral("Total 16.0 GB"));
  EXPECT_EQ(item("percentage").property("text"), QStringLiteral("56.2%"));
  EXPECT_EQ(item("caption").property("text"), QStringLiteral("Used"));
  EXPECT_EQ(accessibleName(&item("freeBar")), QStringLiteral("Free 4.00 GB (25.0%)"));
  EXPECT_EQ(accessibleName(&item("compressedBar")), QStringLiteral("Compressed 1.20 GB"));
  EXPECT_EQ(accessibleName(&item("topConsumers")),
            QStringLiteral("Top 3 apps use 33.3% of memory"));
}

TEST_F(MainWindowTest, AMachineWithoutMemoryShowsEmptyBars) {
  setMemory(0, 0, 0, 0, 0);
  addApplications(2);
  show();
  sample();
  press("detailsToggle");
  QCoreApplication::processEvents();
  EXPECT_EQ(item("percentage").property("text"), QStringLiteral("0.0%"));
  EXPECT_EQ(accessibleName(&item("freeBar")), QStringLiteral("Free 0.00 GB (0.0%)"));
  for (const auto* bar : window_->rootObject()->findChildren<ShareBar*>()) {
    EXPECT_EQ(bar->share(), 0);
  }
  EXPECT_EQ(accessibleName(&item("topConsumers")), QStringLiteral("Top 2 apps use 0.0% of memory"));
}

TEST_F(MainWindowTest, StaysEmptyUntilThereIsASample) {
  services_.counters.counts.reset();
  show();
  EXPECT_EQ(find("gauge"), nullptr);
  EXPECT_EQ(find("detailsToggle"), nullptr);
  setMemory(1, 1, 1, 1, 0);
  sample();
  EXPECT_NE(find("gauge"), nullptr);
  EXPECT_NE(find("detailsToggle"), nullptr);
}

TEST_F(MainWindowTest, OpenedDetailsScrollIntoViewAfterAPause) {
  addApplications(3);
  show();
  sample();
  bool betweenPixels = false;
  QObject::connect(window_.get(), &QQuickWindow::beforeSynchronizing, [&] {
    const double y = find("freeBar") == nullptr ? 0 : place("chartCard").y();
    betweenPixels = betweenPixels || y != std::round(y);
  });
  QElapsedTimer sinceClick;
  sinceClick.start();
  click("detailsToggle");
  const auto scrolled = [this] { return item("scrollArea").property("contentY").toDouble() > 0; };
  ASSERT_TRUE(QTest::qWaitFor(scrolled, 5000));
  EXPECT_GE(sinceClick.elapsed(), 380) << "coarse timers may fire 5 % early";
  const auto bottomGap = [this] {
    return std::abs(place("bottomAnchor").bottom() - place("scrollArea").bottom());
  };
  EXPECT_TRUE(QTest::qWaitFor([&] { return bottomGap() <= 0.5; }, 5000)) << bottomGap();
  EXPECT_FALSE(betweenPixels) << "what is painted there would stay blurred at its place";

  item("scrollArea").setProperty("contentY", 0);
  click("detailsToggle");
  QTest::qWait(900);
  EXPECT_FALSE(scrolled());
  EXPECT_TRUE(QTest::qWaitFor([this] { return find("freeBar") == nullptr; }, 5000));
}

TEST_F(MainWindowTest, TabsSwitchByShortcutAndKeysAndKeepTheDetails) {
  addApplications(1);
  show();
  sample();
  press("detailsToggle");
  QTest::qWait(1400);
  click("topConsumers");
  EXPECT_EQ(item("content").property("selectedTab"), 1);
  EXPECT_EQ(find("gauge"), nullptr);

  item("tabs").forceActiveFocus(Qt::TabFocusReason);
  QTest::keyClick(window_.get(), Qt::Key_Left);
  EXPECT_EQ(item("content").property("selectedTab"), 0);
  EXPECT_NE(find("freeBar"), nullptr);
}

TEST_F(MainWindowTest, BoostButtonIsDeadWhileABoostRuns) {
  setMemory(4, 6, 3, 3, 1);
  show();
  click("boostButton");
  QCoreApplication::processEvents();
  ASSERT_TRUE(manager_->isProcessing());
  EXPECT_FALSE(item("boostButton").isEnabled());
  EXPECT_EQ(item("caption").property("text"), QStringLiteral("Boosting..."));
  EXPECT_NE(find("glow"), nullptr);

  services_.time.advance(Duration{2});
  QTest::qWait(50);
  EXPECT_TRUE(item("boostButton").isEnabled());
  EXPECT_EQ(find("glow"), nullptr);
  EXPECT_EQ(find("processingArcs"), nullptr);
}

TEST_F(MainWindowTest, DrawsOnlyWhileSomethingMovesAndCanBeSeen) {
  show();
  EXPECT_TRUE(QTest::qWaitFor([this] { return framesWithin(200) == 0; }, 3000));
  EXPECT_EQ(framesWithin(500), 0);

  manager_->boostMemory();
  const int before = frames_;
  EXPECT_TRUE(QTest::qWaitFor([&] { return frames_ >= before + 20; }, 5000)) << frames_ - before;
  auto* arc = item("processingArcs").childItems().front();
  const int painted = qobject_cast<GradientArc*>(arc)->paintCount();
  const double turned = item("processingArcs").rotation();
  EXPECT_TRUE(QTest::qWaitFor([&] { return item("processingArcs").rotation() != turned; }, 2000));
  EXPECT_EQ(qobject_cast<GradientArc*>(arc)->paintCount(), painted);

  window_->hide();
  QTest::qWait(50);
  const double stopped = item("processingArcs").rotation();
  EXPECT_EQ(framesWithin(300), 0);
  EXPECT_EQ(item("processingArcs").rotation(), stopped);
}

TEST_F(MainWindowTest, AGaugeMadeDuringABoostStandsStill) {
  create();
  window_.reset();
  manager_->boostMemory();
  window_ = views_->makeMainWindowView({});
  show();
  EXPECT_NE(find("processingArcs"), nullptr);
  QTest::qWait(200);
  EXPECT_EQ(item("processingArcs").rotation(), 0);
  EXPECT_EQ(item("glow").opacity(), 0);
}

TEST_F(MainWindowTest, UsageArcSpringsToANewFigure) {
  show();
  auto* arc = qobject_cast<GradientArc*>(&item("usageArc"));
  EXPECT_DOUBLE_EQ(arc->to(), 0.5625);
  int steps = 0;
  QObject::connect(arc, &GradientArc::changed,
                   [&] { steps += arc->to() > 0.5625 && arc->to() != 0.875 ? 1 : 0; });
  setMemory(1024, 10240, 1024, 4096, 0);
  sample();
  EXPECT_TRUE(QTest::qWaitFor([&] { return steps > 0 && arc->to() == 0.875; }, 5000))
      << steps << " steps, now " << arc->to();

  window_->hide();
  setMemory(4096, 6144, 3072, 3072, 0);
  sample();
  EXPECT_DOUBLE_EQ(arc->to(), 0.5625) << "moves though nobody sees it";
}

}  // namespace
}  // namespace orvane
