#include <gtest/gtest.h>

#include <QGuiApplication>
#include <QQuickItem>
#include <QTest>
#include <QTranslator>
#include <cmath>
#include <vector>

#include "preview/preview_stage.h"
#include "preview/scenario.h"

namespace orvane {
namespace {

const QString filler = QStringLiteral(" ·nnn");

/// Every text that goes through translation, 40 % longer.
class LongLanguage : public QTranslator {
 public:
  [[nodiscard]] QString translate(const char* /*context*/, const char* source, const char* /*note*/,
                                  int /*count*/) const override {
    const QString text = QString::fromUtf8(source);
    const auto more = static_cast<qsizetype>(std::ceil(0.4 * static_cast<double>(text.size())));
    return text + filler.repeated(more).left(std::max<qsizetype>(more, 2));
  }
  [[nodiscard]] bool isEmpty() const override { return false; }
};

struct Shown {
  QString text;
  QRectF visible;  ///< in the window, of what is drawn and nothing cuts off
};

bool isText(const QQuickItem& item) {
  return item.inherits("QQuickText") ||
         (item.inherits("orvane::GradientText") && item.property("blurRadius").toDouble() == 0);
}

/// Where the text itself is in its item.
QRectF drawn(const QQuickItem& item) {
  const QVariant contentWidth = item.property("contentWidth");
  if (!contentWidth.isValid()) return {QPointF(), item.size()};
  const double width = contentWidth.toDouble();
  const int align = item.property("effectiveHorizontalAlignment").toInt();
  const double space = item.width() - width;
  const double x = align == Qt::AlignRight ? space : align == Qt::AlignHCenter ? space / 2 : 0;
  return {x, 0, width, item.property("contentHeight").toDouble()};
}

/// What is wrong with a text by itself; empty for nothing. Names of applications are cut on
/// purpose.
QString faultOf(const QQuickItem& item, const QRectF& place) {
  const bool isData = item.property("elide").toInt() != Qt::ElideNone &&
                      !item.property("text").toString().contains(QChar(0xB7));
  if (item.property("truncated").toBool() && !isData) return QStringLiteral("is cut");
  const QRectF text = drawn(item);
  if (text.width() > item.width() + 1 || text.height() > item.height() + 1)
    return QStringLiteral("is larger than its place");
  for (const QQuickItem* around = &item; around != nullptr; around = around->parentItem()) {
    const bool holds = around->clip() || around->parentItem() == nullptr ||
                       around->property("focusInset").isValid();
    const QRectF bounds = around->mapRectToScene({QPointF(), around->size()});
    if (holds && (place.left() < bounds.left() - 1 || place.right() > bounds.right() + 1))
      return QStringLiteral("leaves what it is in");
  }
  return {};
}

void collect(const QQuickItem& in, QRectF sight, std::vector<Shown>& texts, QStringList& faults) {
  if (!in.isVisible() || in.opacity() == 0) return;
  if (in.clip()) sight &= in.mapRectToScene({QPointF(), in.size()});
  if (isText(in) && !in.property("text").toString().isEmpty()) {
    const QString text = in.property("text").toString();
    const QRectF place = in.mapRectToScene(drawn(in));
    const QString fault = faultOf(in, place);
    if (!fault.isEmpty()) faults << text + QStringLiteral(": ") + fault;
    texts.push_back({text, place.adjusted(1, 1, -1, -1) & sight});
  }
  for (const QQuickItem* child : in.childItems()) collect(*child, sight, texts, faults);
}

QStringList faultsIn(const QQuickWindow& window) {
  std::vector<Shown> texts;
  QStringList faults;
  collect(*window.contentItem(), QRectF(QPointF(), window.size()), texts, faults);
  for (std::size_t i = 0; i < texts.size(); ++i) {
    for (std::size_t j = i + 1; j < texts.size(); ++j)
      if (texts[i].visible.intersects(texts[j].visible))
        faults << texts[i].text + QStringLiteral(": lies on ") + texts[j].text;
  }
  return faults;
}

void expectWholeTexts() {
  for (const preview::Scenario& scenario : preview::scenarios()) {
    preview::PreviewStage stage;
    stage.setAppearance({.colorScheme = ColorScheme::light, .reducedMotion = true}, true);
    scenario.run(stage);
    QTest::qWait(20);
    const QStringList faults = faultsIn(*stage.pictured());
    EXPECT_TRUE(faults.isEmpty()) << scenario.name << "\n" << qPrintable(faults.join(u'\n'));
  }
}

TEST(Texts, AreWholeWhereALanguageNeedsMoreRoom) {
  LongLanguage language;
  QCoreApplication::installTranslator(&language);
  expectWholeTexts();
}

TEST(Texts, AreWholeInGerman) {
  QTranslator german;
  ASSERT_TRUE(german.load(QStringLiteral(ORVANE_GERMAN)));
  QCoreApplication::installTranslator(&german);
  expectWholeTexts();
}

TEST(Texts, AreWholeInTheLargestFont) {
  const QFont before = QGuiApplication::font();
  QFont large = before;
  large.setPointSizeF(12);
  QGuiApplication::setFont(large);
  expectWholeTexts();
  QGuiApplication::setFont(before);
}

}  // namespace
}  // namespace orvane
