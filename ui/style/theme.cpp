#include "ui/style/theme.h"

#include <QEvent>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QPalette>
#include <cmath>

#include "ui/style/spring_curve.h"

namespace orvane {

namespace {

ColorScheme paletteScheme() {
  const QPalette palette = QGuiApplication::palette();
  const bool dark =
      palette.color(QPalette::Window).lightness() < palette.color(QPalette::WindowText).lightness();
  return dark ? ColorScheme::dark : ColorScheme::light;
}

QFont sized(QFont font, double size, int weight) {
  font.setPixelSize(static_cast<int>(std::lround(size)));
  font.setWeight(static_cast<QFont::Weight>(weight));
  return font;
}

}  // namespace

Theme::Theme() : scheme_(paletteScheme()) {
  if (QCoreApplication::instance() != nullptr)
    QCoreApplication::instance()->installEventFilter(this);
}

void Theme::setScheme(std::optional<ColorScheme> scheme) {
  wanted_ = scheme;
  applyScheme();
}

void Theme::setTranslucentWindows(bool translucent) {
  if (translucentWindows_ == translucent) return;
  translucentWindows_ = translucent;
  Q_EMIT changed();
}

void Theme::applyScheme() {
  const ColorScheme scheme = wanted_.value_or(paletteScheme());
  if (scheme == scheme_) return;
  scheme_ = scheme;
  Q_EMIT changed();
}

bool Theme::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::ApplicationPaletteChange &&
      watched == QCoreApplication::instance()) {
    applyScheme();
  }
  return QObject::eventFilter(watched, event);
}

QFont Theme::systemFont(double size, int weight) {
  return sized(QGuiApplication::font(), size, weight);
}

QFont Theme::monospacedFont(double size, int weight) {
  return sized(QFontDatabase::systemFont(QFontDatabase::FixedFont), size, weight);
}

QVariantList Motion::springCurve(double response, double damping) {
  QVariantList curve;
  for (const QPointF& point : orvane::springCurve({response, damping})) {
    curve << point.x() << point.y();
  }
  return curve;
}

int Motion::springDuration(double response, double damping) {
  return static_cast<int>(std::lround(1000 * springSettlingTime({response, damping})));
}

}  // namespace orvane
