#include <gtest/gtest.h>

#include <QFontDatabase>
#include <QFontMetricsF>

#include "ui/menus/menu_choice.h"
#include "ui/process/process_text.h"
#include "ui/windows/window_geometry.h"

namespace orvane {
namespace {

TEST(ProcessText, TruncatesGridLabels) {
  EXPECT_EQ(ProcessText::gridLabels(200, 100), QStringLiteral("200 166 133 100").split(u' '));
  EXPECT_EQ(ProcessText::gridLabels(99.9, 99.9), QStringLiteral("99 99 99 99").split(u' '));
  EXPECT_EQ(ProcessText::gridLabels(1234567.9, 0.5),
            QStringLiteral("1234567 823045 411522 0").split(u' '));
}

TEST(ProcessText, CutsAPathInItsMiddleOnly) {
  const QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  const double width = QFontMetricsF(font).horizontalAdvance(QString(20, QLatin1Char('m')));
  const QString fits = QString(38, QLatin1Char('a'));
  EXPECT_EQ(ProcessText::middleElided(fits, font, width, 2), fits);

  const QString cut = ProcessText::middleElided(
      QStringLiteral("/start/") + QString(500, QLatin1Char('b')) + QStringLiteral("/end"), font,
      width, 2);
  EXPECT_TRUE(cut.startsWith(QStringLiteral("/start/")) && cut.endsWith(QStringLiteral("/end")));
  EXPECT_GE(cut.size(), 36);
  EXPECT_LE(cut.size(), 40);
}

TEST(ProcessText, CopiesWhatACutPathStandsFor) {
  const QString text = QStringLiteral("/start/of/the/way/end");
  const QString cut = QStringLiteral("/sta\u2026/end");
  EXPECT_EQ(ProcessText::uncutPart(text, text, 1, 6), QStringLiteral("start"));
  EXPECT_EQ(ProcessText::uncutPart(text, cut, 0, 9), text);
  EXPECT_EQ(ProcessText::uncutPart(text, cut, 1, 4), QStringLiteral("sta"));
  EXPECT_EQ(ProcessText::uncutPart(text, cut, 6, 9), QStringLiteral("end"));
  EXPECT_EQ(ProcessText::uncutPart(text, cut, 4, 5), QStringLiteral("rt/of/the/way"));
  EXPECT_EQ(ProcessText::uncutPart(text, cut, 2, 6),
            QStringLiteral("ta") + QStringLiteral("rt/of/the/way/"));
  EXPECT_EQ(ProcessText::uncutPart(text, cut, 3, 3), QString());
}

constexpr QRect screen{0, 0, 1000, 800};

TEST(PopupPlacement, StaysBesideItsAnchorAndInsideTheScreen) {
  struct Case {
    const char* what;
    QRect anchor;
    QSize size;
    PopupEdge edge;
    QPoint expected;
  };
  const Case cases[] = {
      {"below", {100, 100, 40, 20}, {200, 150}, PopupEdge::below, {100, 120}},
      {"no room below", {100, 700, 40, 20}, {200, 150}, PopupEdge::below, {100, 550}},
      {"at the right edge", {950, 100, 40, 20}, {200, 150}, PopupEdge::below, {800, 120}},
      {"left of the screen", {-30, 100, 40, 20}, {200, 150}, PopupEdge::below, {0, 120}},
      {"higher than the screen", {100, 300, 40, 20}, {200, 900}, PopupEdge::below, {100, 0}},
      {"beside", {100, 300, 40, 20}, {200, 100}, PopupEdge::trailing, {140, 260}},
      {"no room beside", {900, 300, 40, 20}, {200, 100}, PopupEdge::trailing, {700, 260}},
      {"beside at the top", {100, 0, 40, 20}, {200, 100}, PopupEdge::trailing, {140, 0}},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(placePopup(c.anchor, c.size, screen, c.edge), QRect(c.expected, c.size)) << c.what;
  }
  EXPECT_EQ(placePopup({1500, 100, 40, 20}, {200, 150}, {1000, 0, 1000, 800}, PopupEdge::below),
            QRect(1500, 120, 200, 150))
      << "on the second screen";
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

}  // namespace
}  // namespace orvane
