#include <gtest/gtest.h>

#include <QFontDatabase>
#include <QFontMetricsF>

#include "ui/painted/bubble.h"
#include "ui/process/process_key_navigation.h"
#include "ui/process/process_text.h"

namespace orvane {
namespace {

ProcessRecord record(std::string name, std::int32_t pid, std::string path) {
  ProcessInfo info;
  info.name = std::move(name);
  info.pid = pid;
  info.processPath = std::move(path);
  return ProcessRecord(info);
}

TEST(NeighbourRow, StartsAtTheFirstAndStopsAtBothEnds) {
  const struct {
    int count, current, direction, expected;
  } cases[] = {{0, -1, 1, -1}, {3, -1, 1, 0}, {3, -1, -1, 0}, {3, 0, -1, 0},
               {3, 0, 1, 1},   {3, 2, -1, 1}, {3, 2, 1, 2},   {1, 0, 1, 0}};
  for (const auto& c : cases) {
    EXPECT_EQ(neighbourRow(c.count, c.current, c.direction), c.expected)
        << c.count << " rows, from " << c.current << " by " << c.direction;
  }
}

TEST(ProcessText, CountsWholeMinutesOfHistory) {
  const std::pair<int, const char*> cases[] = {
      {0, ""}, {11, ""}, {12, "Last 1 min"}, {23, "Last 1 min"}, {60, "Last 5 min"}};
  for (const auto& [points, text] : cases) {
    EXPECT_EQ(historyDurationText(points), QLatin1String(text)) << points;
  }
}

TEST(ProcessText, TruncatesGridLabels) {
  const auto joined = [](double peak, double minimum) {
    return historyGridLabels(peak, minimum).join(QLatin1Char(' ')).toStdString();
  };
  EXPECT_EQ(joined(200, 100), "200 166 133 100");
  EXPECT_EQ(joined(0, 0), "0 0 0 0");
  EXPECT_EQ(joined(99.9, 99.9), "99 99 99 99");
  EXPECT_EQ(joined(1234567.9, 0.5), "1234567 823045 411522 0");
}

TEST(ProcessText, NamesAnApplicationAndItsPlace) {
  EXPECT_EQ(locationText(record("a", 4242, "")), QStringLiteral("PID: 4242"));
  EXPECT_EQ(locationText(record("a", 4242, "/usr/bin/a")), QStringLiteral("/usr/bin/a"));
  EXPECT_EQ(killQuestion(record("50%1 'x'", 1, "")),
            QStringLiteral("Are you sure you want to kill '50%1 'x''? Unsaved data will be lost."));
}

TEST(ProcessText, CutsAPathInItsMiddleOnly) {
  const QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  const double width = QFontMetricsF(font).horizontalAdvance(QString(20, QLatin1Char('m')));
  const QString fits = QString(38, QLatin1Char('a'));
  EXPECT_EQ(middleElidedText(fits, font, width, 2), fits);

  const QString cut = middleElidedText(
      QStringLiteral("/start/") + QString(500, QLatin1Char('b')) + QStringLiteral("/end"), font,
      width, 2);
  EXPECT_TRUE(cut.startsWith(QStringLiteral("/start/")) && cut.endsWith(QStringLiteral("/end")));
  EXPECT_GE(cut.size(), 36);
  EXPECT_LE(cut.size(), 40);
}

TEST(ProcessText, CopiesWhatACutPathStandsFor) {
  const QString text = QStringLiteral("/start/of/the/way/end");
  const QString cut = QStringLiteral("/sta\u2026/end");
  EXPECT_EQ(uncutPart(text, text, 1, 6), QStringLiteral("start"));
  EXPECT_EQ(uncutPart(text, cut, 0, 9), text);
  EXPECT_EQ(uncutPart(text, cut, 1, 4), QStringLiteral("sta"));
  EXPECT_EQ(uncutPart(text, cut, 6, 9), QStringLiteral("end"));
  EXPECT_EQ(uncutPart(text, cut, 4, 5), QStringLiteral("rt/of/the/way"));
  EXPECT_EQ(uncutPart(text, cut, 2, 6), QStringLiteral("ta") + QStringLiteral("rt/of/the/way/"));
  EXPECT_EQ(uncutPart(text, cut, 3, 3), QString());
}

TEST(BubblePath, PointsAtItsTipOnEitherSideInsideItsBounds) {
  const QRectF bounds(0, 0, 100, 80);
  for (const bool onRight : {false, true}) {
    for (const double tip : {-50.0, 40.0, 200.0}) {
      const QPainterPath path = bubblePath(bounds, 10, 9, onRight, tip);
      EXPECT_TRUE(bounds.adjusted(-0.01, -0.01, 0.01, 0.01).contains(path.boundingRect()));
      const double x = onRight ? 96 : 4;
      const double y = tip < 0 ? 22.9 : tip > 80 ? 57.1 : 40;  // clear of the corners
      EXPECT_TRUE(path.contains(QPointF(x, y))) << onRight << " " << tip;
      EXPECT_FALSE(path.contains(QPointF(x, y - 15)));
    }
  }
}

}  // namespace
}  // namespace orvane
