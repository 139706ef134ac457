#include "ui/process/process_text.h"

#include <QClipboard>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QTextLayout>
#include <algorithm>
#include <cmath>

#include "ui/style/formats.h"

namespace orvane {

namespace {

constexpr int gridSteps = 3;
constexpr int historyPointsPerMinute = 12;

QString pidText(const ProcessRecord& record) {
  return QCoreApplication::translate("Views", "PID: %1", "number of a process").arg(record.pid());
}

int lineCount(const QString& text, const QFont& font, double width) {
  QTextLayout layout(text, font);
  QTextOption option;
  option.setWrapMode(QTextOption::WrapAnywhere);
  layout.setTextOption(option);
  int lines = 0;
  layout.beginLayout();
  for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
    line.setLineWidth(width);
    ++lines;
  }
  layout.endLayout();
  return lines;
}

/// `kept` characters of `text`, from both of its ends.
QString withoutMiddle(const QString& text, qsizetype kept) {
  qsizetype head = (kept + 1) / 2;
  qsizetype tail = kept / 2;
  // A pair of surrogates is one character.
  if (head > 0 && text[head - 1].isHighSurrogate()) --head;
  if (tail > 0 && text[text.size() - tail].isLowSurrogate()) --tail;
  return text.left(head) + QChar(0x2026) + text.right(tail);
}

}  // namespace

QString ProcessText::historyDuration(int points) {
  const int minutes = points / historyPointsPerMinute;
  if (minutes < 1) return {};
  return QCoreApplication::translate("Views", "Last %1 min", "how far a chart goes back")
      .arg(minutes);
}

QStringList ProcessText::gridLabels(double peak, double minimum) {
  QStringList labels;
  for (int step = 0; step <= gridSteps; ++step) {
    const double value = peak - step * (peak - minimum) / gridSteps;
    labels << Format::number(std::isfinite(value) ? std::trunc(value) : 0.0, 0);
  }
  return labels;
}

QString ProcessText::identity(const ProcessRecord& record) {
  const QString distinction = record.distinction();
  return distinction.isEmpty() ? pidText(record)
                               : pidText(record) + QStringLiteral(" \u00b7 ") + distinction;
}

QString ProcessText::location(const ProcessRecord& record) {
  const QString path = record.path();
  return path.isEmpty() ? pidText(record) : path;
}

QString ProcessText::killQuestion(const ProcessRecord& record) {
  // The isolates keep a name written from right to left from turning what follows it.
  return QCoreApplication::translate(
             "Views", "Are you sure you want to kill '%1'? Unsaved data will be lost.",
             "before an application is ended; %1 is its name")
      .replace(QStringLiteral("%1"), QChar(0x2068) + record.name() + QChar(0x2069));
}

QString ProcessText::middleElided(const QString& text, const QFont& font, double width, int lines) {
  if (lineCount(text, font, width) <= lines) return text;
  qsizetype fits = 0;
  qsizetype tooMany = text.size();
  while (tooMany - fits > 1) {
    const qsizetype kept = (fits + tooMany) / 2;
    const bool enough = lineCount(withoutMiddle(text, kept), font, width) <= lines;
    (enough ? fits : tooMany) = kept;
  }
  return withoutMiddle(text, fits);
}

QString ProcessText::uncutPart(const QString& text, const QString& cut, int from, int to) {
  const auto* const mark = std::mismatch(cut.begin(), cut.end(), text.begin(), text.end()).first;
  const auto place = [&](qsizetype position) {
    return position <= mark - cut.begin() ? position : position + text.size() - cut.size();
  };
  return text.mid(place(from), place(to) - place(from));
}

void ProcessText::copyPart(const QString& text, const QString& cut, int from, int to,
                           bool forMiddleClick) {
  const QString part = uncutPart(text, cut, from, to);
  QClipboard* clipboard = QGuiApplication::clipboard();
  if (part.isEmpty()) return;
  if (!forMiddleClick) {
    clipboard->setText(part);
  } else if (clipboard->supportsSelection()) {
    // TextEdit puts its own selection on the clipboard when the pointer is released: this comes
    // after it.
    QMetaObject::invokeMethod(
        clipboard, [clipboard, part] { clipboard->setText(part, QClipboard::Selection); },
        Qt::QueuedConnection);
  }
}

}  // namespace orvane
