#include <gmock/gmock.h>

#include "tests/ui/view_case.h"
#include "ui/painted/gradient_arc.h"
#include "ui/style/palette.h"

namespace orvane {
namespace {

class StatusMenuViewTest : public ViewCase {
 protected:
  void show() {
    createWindows();
    shell_.onBoost = [this] { manager_->boostMemory(); };
    windows_->showPopover({});
    view_ = windows_->window(WindowKind::popover);
    ASSERT_TRUE(QTest::qWaitForWindowExposed(view_));
    QTest::qWait(20);
  }
};

TEST_F(StatusMenuViewTest, DetailsSlideOutWithABarACategory) {
  show();
  EXPECT_EQ(text(item("amounts")), "9.0 GB / 16.0 GB");
  EXPECT_EQ(text(item("ringText")), "56%");
  const int closed = view_->height();
  EXPECT_EQ(find("details"), nullptr);
  press(item("detailsButton"));
  ASSERT_TRUE(waitUntil([this] { return item("header").property("expansion") == 1.0; }));
  expectSymbols();
  QVariantList shares;
  std::vector<std::string> texts;
  for (const QQuickItem* row : item("details").childItems()) {
    if (!row->property("share").isValid()) continue;
    shares << row->property("share");
    texts.push_back(row->property("valueText").toString().toStdString());
  }
  EXPECT_EQ(shares, (QVariantList{0.25, 0.375, 0.1875, 0.1875, 0.0625}));
  EXPECT_THAT(texts, testing::ElementsAre("4.0 GB", "6.0 GB", "3.0 GB", "3.0 GB", "1.0 GB"));
  const auto grown = [&] { return view_->height() - closed == item("details").height() - 4; };
  EXPECT_TRUE(waitUntil(grown)) << "the window takes the height of its content";
  press(item("detailsButton"));
  EXPECT_TRUE(waitUntil([&] { return view_->height() == closed && find("details") == nullptr; }));
}

TEST_F(StatusMenuViewTest, FiguresAndColoursFollowTheModel) {
  show();
  const auto colors = [this] { return item("ring").property("colors").value<QList<QColor>>(); };
  services_.counters.setUsage(85.0);
  sample();
  EXPECT_EQ(colors().front(), palette(ColorScheme::light).blue);
  services_.counters.setUsage(85.01);
  sample();
  EXPECT_EQ(colors().front(), palette(ColorScheme::light).red);
  services_.counters.setUsage(85.99);
  sample();
  EXPECT_EQ(text(item("ringText")), "85%");
  const int before = view_->height();
  services_.counters.counts.reset();
  sample();
  EXPECT_TRUE(waitUntil([&] { return before - view_->height() == 74; })) << "no sample";
  EXPECT_EQ(find("header"), nullptr);
  EXPECT_TRUE(item("boostButton").isEnabled());
}

TEST_F(StatusMenuViewTest, BoostSpinsUntilItEndsAndThenEasesBack) {
  show();
  click(item("boostButton"));
  EXPECT_EQ(shell_.boosts, 1);
  EXPECT_FALSE(item("boostButton").isEnabled());
  EXPECT_EQ(text(item("boostButton")), "Boosting...");
  ASSERT_TRUE(waitUntil([this] { return item("bolt").scale() > 1.02; }));
  EXPECT_GT(item("bolt").rotation(), 10);
  EXPECT_DOUBLE_EQ(item("boostArcs").rotation(), item("bolt").rotation());
  EXPECT_LE(item("bolt").scale(), 1.2);
  int paintings = 0;
  for (const auto* child : item("boostArcs").childItems())
    if (const auto* arc = qobject_cast<const GradientArc*>(child)) paintings += arc->paintCount();
  EXPECT_EQ(paintings, 2) << "two arcs, turned as images";
  press(item("boostButton"));
  EXPECT_EQ(shell_.boosts, 1) << "disabled";

  services_.time.advance(Duration{2});
  EXPECT_TRUE(waitUntil([this] { return find("boostArcs") == nullptr; }));
  EXPECT_EQ(text(item("boostButton")), "Boost Memory");
  const auto rests = [this] { return item("bolt").rotation() == 0 && item("bolt").scale() == 1; };
  EXPECT_TRUE(waitUntil(rests));
}

TEST_F(StatusMenuViewTest, OnlyTheControlUnderThePointerLightsUp) {
  show();
  const auto light = [this](const char* name) {
    const auto* effect = item(name).findChild<QQuickItem*>(QStringLiteral("hoverEffect"));
    return effect->property("color").value<QColor>().alphaF();
  };
  for (const auto& lit : {std::pair("gearMenu", "boostButton"), {"boostButton", "gearMenu"}}) {
    QTest::mouseMove(view_, place(item(lit.first)).center().toPoint());
    EXPECT_TRUE(waitUntil([&] { return qAbs(light(lit.first) - 0.05) < 0.005; })) << lit.first;
    EXPECT_EQ(light(lit.second), 0) << lit.second;
  }
}

TEST_F(StatusMenuViewTest, KeyboardReachesEveryControlEvenDuringABoost) {
  show();
  for (const char* name : {"detailsButton", "boostButton", "gearMenu", "detailsButton"}) {
    pressKeys(view_, {Qt::Key_Tab});
    EXPECT_TRUE(item(name).hasActiveFocus()) << name;
  }
  pressKeys(view_, {Qt::Key_Tab, Qt::Key_Return});
  EXPECT_FALSE(item("boostButton").isEnabled());
  pressKeys(view_, {Qt::Key_Escape});
  EXPECT_FALSE(windows_->isPopoverShown());
  EXPECT_EQ(shell_.closed, std::vector{WindowKind::popover});
}

}  // namespace
}  // namespace orvane
