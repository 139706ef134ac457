#include <gtest/gtest.h>

#include <QAccessible>
#include <QGuiApplication>
#include <QQuickItem>
#include <QQuickView>
#include <QSignalSpy>
#include <QTest>
#include <memory>
#include <string>
#include <vector>

#include "tests/fakes/fake_services.h"
#include "ui/painted/gradient_arc.h"
#include "ui/views.h"

namespace orvane {
namespace {

class StatusMenuViewTest : public testing::Test {
 protected:
  StatusMenuViewTest() {
    services_.claims.refuses = true;  // a boost takes no real memory here
    services_.counters.bytesPerPage = 1U << 20U;
    services_.counters.counts = PageCounts{
        .free = 4096, .active = 6144, .inactive = 3072, .wired = 3072, .compressed = 1024};
  }
  void create() {
    manager_ = MemoryManager::create(services_.services());
    views_ = std::make_unique<Views>(manager_);
    views_->setColorScheme(ColorScheme::light);
  }
  void show() {
    if (!manager_) create();
    view_ = views_->makePopoverView(closures());
    view_->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(view_.get()));
    view_->requestActivate();
    QTest::qWait(20);
  }
  PopoverClosures closures() {
    const auto record = [this](const std::string& call) { calls_.push_back(call); };
    return {.isMainWindowVisible = [this] { return windowVisible_; },
            .setMainWindowVisible =
                [=, this](bool on) {
                  windowVisible_ = on;
                  record(on ? "show" : "hide");
                },
            .onBoost =
                [=, this] {
                  record("boost");
                  manager_->boostMemory();
                },
            .onCheckUpdates = [=] { record("updates"); },
            .onQuit = [=] { record("quit"); },
            .launchAtLogin = [this] { return launch_; },
            .setLaunchAtLogin =
                [=, this](bool on) {
                  launch_ = on;
                  record(on ? "login on" : "login off");
                }};
  }
  [[nodiscard]] QQuickItem* find(const char* name) const {
    return view_->rootObject()->findChild<QQuickItem*>(QLatin1String(name));
  }
  [[nodiscard]] QQuickItem& item(const char* name) const {
    QQuickItem* found = find(name);
    if (found == nullptr) qFatal("no item %s", name);
    return *found;
  }
  [[nodiscard]] QRectF place(QQuickItem& of) const {
    return of.mapRectToScene(QRectF(QPointF(), of.size()));
  }
  [[nodiscard]] QQuickWindow* menuWindow() const {
    const auto windows = QGuiApplication::topLevelWindows();
    for (QWindow* window : windows) {
      if (window->transientParent() == view_.get() && window->isVisible()) {
        return qobject_cast<QQuickWindow*>(window);
      }
    }
    return nullptr;
  }
  static void press(QQuickItem& item) {
    auto* actions = QAccessible::queryAccessibleInterface(&item)->actionInterface();
    actions->doAction(QAccessibleActionInterface::pressAction());
    QCoreApplication::processEvents();
  }
  void sample() {
    manager_->updateMemoryStats();
    QTest::qWait(50);  // lays out and drops what is no longer shown
  }
  /// However slow the machine is.
  template <typename Condition>
  static bool eventually(Condition condition) {
    return QTest::qWaitFor(condition, 20000);
  }
  void openDetails() {
    press(item("detailsButton"));
    ASSERT_TRUE(eventually([this] { return item("header").property("expansion") == 1.0; }));
    QTest::qWait(50);
  }

  fakes::FakeServices services_;
  std::shared_ptr<MemoryManager> manager_;
  std::unique_ptr<Views> views_;
  std::unique_ptr<QQuickView> view_;
  std::vector<std::string> calls_;
  bool windowVisible_ = false;
  bool launch_ = false;
};

TEST_F(StatusMenuViewTest, LaysOutHeaderAndBottomBar) {
  show();
  EXPECT_EQ(view_->width(), 300);
  EXPECT_EQ(place(item("ring")), QRectF(238, 12, 50, 50));
  EXPECT_EQ(item("header").height(), 74) << "12 above and below the ring";
  EXPECT_EQ(place(item("amounts")).left(), 12);
  EXPECT_EQ(item("amounts").property("text"), QStringLiteral("9.0 GB / 16.0 GB"));
  EXPECT_EQ(item("ringText").property("text"), QStringLiteral("56%"));
  EXPECT_DOUBLE_EQ(item("ring").property("progressEnd").toDouble(), 0.5625);
  EXPECT_EQ(item("ring").property("colors").value<QList<QColor>>().size(), 3);
  const QRectF boost = place(item("boostButton"));
  const QRectF gear = place(item("gearMenu"));
  EXPECT_EQ(boost.topLeft(), QPointF(0, 75)) << "under a divider";
  EXPECT_EQ(boost.right(), gear.left());
  EXPECT_EQ(gear.right(), 300);
  EXPECT_EQ(gear.width(), 38);
  EXPECT_EQ(place(item("bolt")).left(), 12);
  EXPECT_EQ(view_->height(), gear.bottom());
}

TEST_F(StatusMenuViewTest, DetailsSlideOutWithABarACategory) {
  show();
  const int closed = view_->height();
  EXPECT_EQ(find("details"), nullptr);
  openDetails();
  EXPECT_EQ(place(item("details")).top(), 70) << "8 under the ring";
  const auto rows = item("details").childItems();
  ASSERT_EQ(rows.size(), 5);
  const double fractions[] = {0.25, 0.375, 0.1875, 0.1875, 0.0625};
  const char* texts[] = {"4.0 GB", "6.0 GB", "3.0 GB", "3.0 GB", "1.0 GB"};
  for (int i = 0; i < 5; ++i) {
    EXPECT_EQ(rows[i]->property("barWidth").toDouble(), 130);
    EXPECT_DOUBLE_EQ(rows[i]->property("share").toDouble(), fractions[i]);
    EXPECT_EQ(rows[i]->property("valueText"), QLatin1String(texts[i]));
  }
  EXPECT_EQ(place(*rows[0]).topLeft(), QPointF(12, 78));
  EXPECT_EQ(rows[1]->y() - rows[0]->y() - rows[0]->height(), 4);
  EXPECT_EQ(view_->height() - closed, item("details").height() - 4);
  press(item("detailsButton"));
  EXPECT_TRUE(eventually([&] { return view_->height() == closed && find("details") == nullptr; }));
}

TEST_F(StatusMenuViewTest, ColoursTurnWarmAndFiguresFollowTheModel) {
  show();
  services_.counters.setUsage(85.0);
  sample();
  EXPECT_EQ(item("ring").property("colors").value<QList<QColor>>().size(), 3);
  services_.counters.setUsage(85.01);
  sample();
  EXPECT_EQ(item("ring").property("colors").value<QList<QColor>>().size(), 2);
  EXPECT_EQ(item("ringText").property("text"), QStringLiteral("85%"));
  services_.counters.counts = PageCounts{};
  sample();
  EXPECT_EQ(item("ring").property("progressEnd").toDouble(), 0) << "no memory at all";
  const int before = view_->height();
  services_.counters.counts.reset();
  sample();
  EXPECT_TRUE(eventually([&] { return before - view_->height() == 74; })) << "no sample";
  EXPECT_EQ(find("header"), nullptr);
  EXPECT_TRUE(item("boostButton").isEnabled());
}

TEST_F(StatusMenuViewTest, BoostSpinsUntilItEndsAndThenEasesBack) {
  show();
  press(item("boostButton"));
  EXPECT_EQ(calls_, std::vector<std::string>{"boost"});
  EXPECT_FALSE(item("boostButton").isEnabled());
  EXPECT_EQ(item("boostButton").property("text"), QStringLiteral("Boosting..."));
  ASSERT_TRUE(eventually([this] { return item("bolt").scale() > 1.02; }));
  const double turned = item("bolt").rotation();
  EXPECT_GT(turned, 10);
  EXPECT_DOUBLE_EQ(item("boostArcs").rotation(), turned);
  EXPECT_LE(item("bolt").scale(), 1.2);
  int paintings = 0;
  for (const auto* child : item("boostArcs").childItems()) {
    if (const auto* arc = qobject_cast<const GradientArc*>(child)) paintings += arc->paintCount();
  }
  EXPECT_EQ(paintings, 2) << "two arcs, turned as images";
  press(item("boostButton"));
  EXPECT_EQ(calls_.size(), 1U) << "disabled";

  services_.time.advance(Duration{2});
  EXPECT_TRUE(eventually([this] { return find("boostArcs") == nullptr; }));
  EXPECT_EQ(item("boostButton").property("text"), QStringLiteral("Boost Memory"));
  EXPECT_TRUE(
      eventually([this] { return item("bolt").rotation() == 0 && item("bolt").scale() == 1; }));
}

TEST_F(StatusMenuViewTest, OpenedDuringABoostItRestsUntilTheNextChange) {
  create();
  manager_->boostMemory();
  show();
  EXPECT_NE(find("boostArcs"), nullptr);
  QTest::qWait(150);
  EXPECT_EQ(item("boostArcs").rotation(), 0);
  EXPECT_EQ(item("bolt").rotation(), 0);
}

TEST_F(StatusMenuViewTest, OnlyTheControlUnderThePointerLightsUp) {
  show();
  const auto light = [this](const char* name) {
    const auto* effect = item(name).findChild<QQuickItem*>(QStringLiteral("hoverEffect"));
    return effect->property("color").value<QColor>().alphaF();
  };
  const auto move = [this](QPointF to) {
    QTest::mouseMove(view_.get(), to.toPoint());
    QTest::qWait(20);
  };
  move(place(item("boostButton")).center());
  EXPECT_NEAR(light("boostButton"), 0.05, 0.005);
  EXPECT_EQ(light("gearMenu"), 0);
  move(place(item("gearMenu")).center());
  EXPECT_EQ(light("boostButton"), 0);
  EXPECT_NEAR(light("gearMenu"), 0.05, 0.005);
  move(QPointF(150, 5));
  EXPECT_EQ(light("gearMenu"), 0);
}

TEST_F(StatusMenuViewTest, KeyboardReachesEveryControl) {
  show();
  QSignalSpy closing(view_->rootObject(), SIGNAL(closeRequested()));
  EXPECT_FALSE(item("boostButton").hasActiveFocus());
  for (const char* name : {"detailsButton", "boostButton", "gearMenu", "detailsButton"}) {
    QTest::keyClick(view_.get(), Qt::Key_Tab);
    EXPECT_TRUE(item(name).hasActiveFocus()) << name;
  }
  QTest::keyClick(view_.get(), Qt::Key_Space);
  EXPECT_TRUE(view_->rootObject()->property("detailsShown").toBool());
  QTest::keyClick(view_.get(), Qt::Key_Escape);
  EXPECT_EQ(closing.count(), 1);
  for (const Qt::Key key : {Qt::Key_Tab, Qt::Key_Return}) QTest::keyClick(view_.get(), key);
  QTest::qWait(20);
  EXPECT_FALSE(item("boostButton").isEnabled());
  QTest::keyClick(view_.get(), Qt::Key_Escape);
  EXPECT_EQ(closing.count(), 2) << "while a boost runs that the keyboard started";
}

TEST_F(StatusMenuViewTest, MenuRunsItsEntriesByKeyboardAndPointer) {
  show();
  const auto open = [this] {
    press(item("gearMenu"));
    QTest::qWait(30);
    return menuWindow();
  };
  const auto pressKeys = [](QWindow* menu, std::initializer_list<Qt::Key> keys) {
    for (const Qt::Key key : keys) QTest::keyClick(menu, key);
    QCoreApplication::processEvents();
  };
  QQuickWindow* menu = open();
  ASSERT_NE(menu, nullptr);
  EXPECT_TRUE(view_->rootObject()->property("menuOpen").toBool());
  pressKeys(menu, {Qt::Key_Down, Qt::Key_Return});
  EXPECT_EQ(menuWindow(), nullptr);
  EXPECT_FALSE(view_->rootObject()->property("menuOpen").toBool());
  pressKeys(open(), {Qt::Key_Down, Qt::Key_Down, Qt::Key_Space});
  pressKeys(open(), {Qt::Key_End, Qt::Key_Up, Qt::Key_Return});
  ASSERT_NE(open(), nullptr);
  view_->requestActivate();  // as with a compositor that leaves the keyboard there
  pressKeys(view_.get(), {Qt::Key_Up, Qt::Key_Return});
  pressKeys(open(), {Qt::Key_Home, Qt::Key_Enter});
  pressKeys(open(), {Qt::Key_Down, Qt::Key_Escape});
  EXPECT_EQ(menuWindow(), nullptr);
  EXPECT_EQ(calls_, (std::vector<std::string>{"show", "login on", "updates", "quit", "hide"}));
  menu = open();
  ASSERT_NE(menu, nullptr);
  QTest::mouseClick(menu, Qt::LeftButton, {}, QPoint(40, 16));
  QCoreApplication::processEvents();
  EXPECT_EQ(calls_.back(), "show");
  menu = open();
  QTest::mousePress(menu, Qt::LeftButton, {}, QPoint(-50, -50));
  QCoreApplication::processEvents();
  EXPECT_EQ(menuWindow(), nullptr) << "a press outside";
}

}  // namespace
}  // namespace orvane
