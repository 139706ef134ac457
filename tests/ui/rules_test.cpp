#include <gtest/gtest.h>

#include <QEasingCurve>
#include <QFontDatabase>
#include <QFontMetricsF>

#include "ui/menus/menu_choice.h"
#include "ui/process/process_text.h"
#include "ui/style/painted_length.h"
#include "ui/style/spring_curve.h"
#include "ui/windows/window_geometry.h"

namespace orvane {
namespace {

using namespace Qt::StringLiterals;

TEST(ProcessText, TruncatesGridLabels) {
  EXPECT_EQ(ProcessText::gridLabels(200, 100), u"200 166 133 100"_s.split(u' '));
  EXPECT_EQ(ProcessText::gridLabels(99.9, 99.9), u"99 99 99 99"_s.split(u' '));
  EXPECT_EQ(ProcessText::gridLabels(1234567.9, 0.5), u"1234567 823045 411522 0"_s.split(u' '));
}

TEST(ProcessText, CutsAPathInItsMiddleOnly) {
  const QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  const double width = QFontMetricsF(font).horizontalAdvance(QString(20, QLatin1Char('m')));
  const QString fits = QString(38, QLatin1Char('a'));
  EXPECT_EQ(ProcessText::middleElided(fits, font, width, 2), fits);

  const QString cut = ProcessText::middleElided(
      u"/start/"_s + QString(500, QLatin1Char('b')) + u"/end"_s, font, width, 2);
  EXPECT_TRUE(cut.startsWith(u"/start/"_s) && cut.endsWith(u"/end"_s));
  EXPECT_GE(cut.size(), 36);
  EXPECT_LE(cut.size(), 40);
}

TEST(ProcessText, CopiesWhatACutPathStandsFor) {
  const QString text = u"/start/of/the/way/end"_s;
  const QString cut = u"/sta\u2026/end"_s;
  EXPECT_EQ(ProcessText::uncutPart(text, text, 1, 6), u"start"_s);
  EXPECT_EQ(ProcessText::uncutPart(text, cut, 0, 9), text);
  EXPECT_EQ(ProcessText::uncutPart(text, cut, 1, 4), u"sta"_s);
  EXPECT_EQ(ProcessText::uncutPart(text, cut, 6, 9), u"end"_s);
  EXPECT_EQ(ProcessText::uncutPart(text, cut, 4, 5), u"rt/of/the/way"_s);
  EXPECT_EQ(ProcessText::uncutPart(text, cut, 2, 6), u"tart/of/the/way/"_s);
  EXPECT_EQ(ProcessText::uncutPart(text, cut, 3, 3), QString());
}

TEST(PopupPlacement, StaysBesideItsAnchorAndInsideTheScreen) {
  using enum PopupEdge;
  const QRect second(1000, 0, 1000, 800);
  const struct {
    const char* what;
    QRect anchor;
    QSize size;
    PopupEdge edge;
    QPoint expected;
    QRect screen = {0, 0, 1000, 800};
  } cases[] = {
      {"below", {100, 100, 40, 20}, {200, 150}, below, {100, 120}},
      {"no room below", {100, 700, 40, 20}, {200, 150}, below, {100, 550}},
      {"at the right edge", {950, 100, 40, 20}, {200, 150}, below, {794, 120}},
      {"left of the screen", {-30, 100, 40, 20}, {200, 150}, below, {6, 120}},
      {"higher than the screen", {100, 300, 40, 20}, {200, 900}, below, {100, 6}},
      {"beside", {100, 300, 40, 20}, {200, 100}, trailing, {140, 260}},
      {"no room beside", {900, 300, 40, 20}, {200, 100}, trailing, {700, 260}},
      {"beside at the top", {100, 0, 40, 20}, {200, 100}, trailing, {140, 6}},
      {"on a second screen", {1500, 100, 40, 20}, {200, 150}, below, {1500, 120}, second},
  };
  for (const auto& [what, anchor, size, edge, expected, screen] : cases)
    EXPECT_EQ(placePopup(anchor, size, screen, edge), QRect(expected, size)) << what;
}

TEST(MenuChoice, SkipsWhatCantBeChosenAndGoesRound) {
  const QList<bool> menu{true, false, true, false, true};
  EXPECT_EQ(nextChoice(menu, -1, 1), 0);
  EXPECT_EQ(nextChoice(menu, -1, -1), 4);
  EXPECT_EQ(nextChoice(menu, 0, 1), 2);
  EXPECT_EQ(nextChoice(menu, 4, 1), 0);
  EXPECT_EQ(nextChoice(menu, 0, -1), 4);
  EXPECT_EQ(nextChoice({false, false}, -1, 1), -1);
  EXPECT_EQ(nextChoice({}, -1, 1), -1);
}

const QRect whole(0, 0, 1280, 800);
constexpr QSize popoverSize(300, 220);
const QList<ScreenArea> panelAbove = {{whole, {0, 28, 1280, 772}}};

TEST(PopoverGeometry, LiesBesideThePanelAndInsideTheScreen) {
  const struct {
    const char* panel;
    QPoint item;
    QRect available;
    QPoint corner;
  } cases[] = {{"top", {640, 12}, {0, 28, 1280, 772}, {490, 34}},
               {"top right corner", {1270, 12}, {0, 28, 1280, 772}, {974, 34}},
               {"bottom left corner", {4, 790}, {0, 0, 1280, 770}, {6, 544}},
               {"left", {10, 400}, {40, 0, 1240, 800}, {46, 290}},
               {"right", {1275, 700}, {0, 0, 1240, 800}, {934, 574}},
               // Its item is nearer to the bottom than to the panel's own edge.
               {"left, near the bottom", {30, 790}, {40, 0, 1240, 800}, {46, 574}},
               // Panels that hide themselves leave no room free.
               {"chosen in the menu below the panel", {1270, 62}, {0, 28, 1280, 772}, {974, 34}},
               {"hiding, at the top", {640, 10}, whole, {490, 26}},
               {"hiding, at the bottom", {640, 795}, whole, {490, 559}}};
  for (const auto& [panel, item, available, corner] : cases) {
    const QRect rectangle = popoverRectangle(item, popoverSize, {whole, available});
    EXPECT_EQ(rectangle, QRect(corner, popoverSize)) << panel;
    EXPECT_TRUE(available.contains(rectangle)) << panel;
  }
  const ScreenArea small{{0, 0, 320, 200}, {0, 20, 320, 180}};
  EXPECT_EQ(popoverRectangle({300, 10}, {340, 400}, small).topLeft(), QPoint(6, 26)) << "too large";
  const QList<ScreenArea> both = {{whole, whole}, {{1280, 0, 1920, 1080}, {1280, 0, 1920, 1040}}};
  const QPoint item(2000, 1060);
  EXPECT_EQ(popoverRectangle(item, popoverSize, screenAt(item, both)), QRect(1850, 814, 300, 220));
  EXPECT_EQ(&screenAt({5000, 5000}, both), &both.first());
}

TEST(PopoverGeometry, KeepsItsDistanceFromThePanelsOfEachMonitor) {
  // Two monitors, the second one scaled; X11 says nothing of the room there.
  const ScreenArea second{{1280, 0, 960, 540}, {1280, 0, 960, 540}, 2.0};
  const QRect panel(1280, 1020, 1920, 60);
  const ScreenArea known = withoutPanel(second, panel);
  EXPECT_EQ(known.available, QRect(1280, 0, 960, 510));
  for (const int y : {512, 525, 538})
    EXPECT_EQ(popoverRectangle({1700, y}, popoverSize, known), QRect(1550, 284, 300, 220)) << y;
  EXPECT_EQ(withoutPanel({whole, whole}, panel).available, whole) << "another screen's";
  EXPECT_EQ(withoutPanel({whole, whole}, {0, 0, 1280, 28}).available, QRect(0, 28, 1280, 772));
  const ScreenArea left = withoutPanel({whole, whole}, {0, 0, 40, 800});
  EXPECT_EQ(left.available, QRect(40, 0, 1240, 800));
  EXPECT_EQ(withoutPanel({whole, whole}, {1240, 0, 40, 800}).available, QRect(0, 0, 1240, 800));
  EXPECT_EQ(withoutPanel({whole, whole}, {300, 300, 200, 40}).available, whole) << "floats";
  // The details open: its top stays, as long as the screen has the room.
  EXPECT_EQ(popoverRectangle({10, 400}, {300, 340}, left, QPoint(46, 290)).topLeft(),
            QPoint(46, 290));
  EXPECT_EQ(popoverRectangle({10, 700}, {300, 340}, left, QPoint(46, 590)).top(), 454);
}

TEST(WindowPosition, IsTheLastOneWhileItsTitleBarCanBeReached) {
  const QSize size(440, 510);
  for (const QPoint last : {QPoint(700, 100), QPoint(-380, 30), QPoint(1220, 788)})
    EXPECT_EQ(windowPosition(last, size, panelAbove), last);
  for (const QPoint gone : {QPoint(1400, 100), QPoint(-400, 30), QPoint(100, -600)})
    EXPECT_EQ(windowPosition(gone, size, panelAbove), QPoint(419, 158));
  const QList<ScreenArea> low = {{{0, 0, 640, 400}, {0, 28, 640, 372}}};
  EXPECT_EQ(windowPosition({1400, 100}, size, low), QPoint(99, 28)) << "its title bar comes first";
  const QRect screen(0, 0, 853, 533);
  EXPECT_EQ(fittingHeight(510, {screen, screen.adjusted(0, 20, 0, 0)}), 473);
  EXPECT_EQ(fittingHeight(510, {screen, screen.adjusted(0, 20, 0, 0), 1.25}), 472) << "black row";
  EXPECT_EQ(fittingHeight(510, {screen, screen}), 445) << "panels that nobody tells of";
  EXPECT_EQ(fittingHeight(510, {{0, 0, 1024, 768}, {0, 0, 1024, 768}}), 510);
}

TEST(PaintedLength, LeavesNoDeviceRowUnpaintedAndAWholeRatioAlone) {
  const struct {
    double points, ratio;
    int length;
  } cases[] = {{290.2, 1, 291},  {291, 2, 291},   {291, 1.75, 292}, {169, 1.25, 170},
               {171, 1.25, 171}, {151, 1.5, 151}, {101, 1.01, 101}, {7, 0, 7}};
  for (const auto& c : cases) EXPECT_EQ(paintedLength(c.points, c.ratio), c.length) << c.points;
}

TEST(ItemLocation, TakesTheMostCredibleSource) {
  const QList<ScreenArea> dense = {{whole, {0, 28, 1280, 772}, 2.0}};
  const QList<ScreenArea> panelBelow = {{whole, {0, 0, 1280, 770}}};
  const struct {
    const char* what;
    std::optional<QPoint> pointer;
    ScreenPoint reported;
    QPoint item;
    const QList<ScreenArea>& screens = panelAbove;
  } cases[] = {{"the pointer on the panel", QPoint(1000, 12), {0, 25}, {1000, 12}},
               {"a pointer far away", QPoint(600, 400), {1100, 14}, {1100, 14}},
               {"no pointer", {}, {1100, 14}, {1100, 14}},
               {"a report relative to the item", {}, {9, 11}, {1279, 0}},
               {"a report off the screen", {}, {4000, 14}, {1279, 0}},
               {"a report in the middle", QPoint(600, 400), {640, 400}, {1279, 0}},
               {"a report in device pixels", {}, {2200, 24}, {1100, 12}, dense},
               {"nothing but the corner at the panel", {}, {}, {1279, 799}, panelBelow}};
  for (const auto& [what, pointer, reported, item, screens] : cases)
    EXPECT_EQ(statusItemLocation(pointer, reported, screens), item) << what;
}

TEST(Spring, EasingFollowsTheFormulaAndSettles) {
  for (const Spring& spring : {Spring{0.3, 0.825}, {0.5, 0.825}, {0.6, 0.7}, {0.4, 1.0}}) {
    SCOPED_TRACE(testing::Message() << spring.response << ", " << spring.dampingFraction);
    QEasingCurve easing(QEasingCurve::BezierSpline);
    const QList<QPointF> points = springCurve(spring);
    for (int i = 0; i + 2 < points.size(); i += 3)
      easing.addCubicBezierSegment(points[i], points[i + 1], points[i + 2]);
    const double duration = springSettlingTime(spring);
    EXPECT_GT(duration, spring.response / 2);
    for (double share = 0.02; share < 3; share += 0.02) {
      const double left = springDisplacement(spring, share * duration);
      EXPECT_NEAR(easing.valueForProgress(share), 1 - left, share < 1 ? 0.004 : 0.001) << share;
    }
  }
  EXPECT_GT(1 - springDisplacement({0.6, 0.7}, 0.42), 1.02) << "a soft spring swings over its end";
}

}  // namespace
}  // namespace orvane
