#include "ui/style/theme.h"

#include <QEvent>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QPalette>
#include <algorithm>
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

}  // namespace

Theme::Theme() {
  apply();
  if (QCoreApplication::instance() != nullptr)
    QCoreApplication::instance()->installEventFilter(this);
}

void Theme::setAppearance(const AppearanceSettings& settings) {
  wanted_ = settings;
  apply();
}

void Theme::setTranslucentWindows(bool translucent) {
  if (translucentWindows_ == translucent) return;
  translucentWindows_ = translucent;
  Q_EMIT changed();
}

double Theme::shadowMargin() const {
  constexpr double reach = 22;  // of WindowShadow
  const bool isWayland = QGuiApplication::platformName().startsWith(QLatin1String("wayland"));
  return translucentWindows_ && !isWayland ? reach : 0;
}

void Theme::apply() {
  scheme_ = wanted_.colorScheme.value_or(paletteScheme());
  palette_ = Palette(scheme_, wanted_.highContrast);
  Q_EMIT changed();
}

bool Theme::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::ApplicationPaletteChange &&
      watched == QCoreApplication::instance()) {
    apply();
  }
  return QObject::eventFilter(watched, event);
}

double textFactor(double points) {
  return std::clamp(points / 10, 1.0, 1.2);
}

QFont Theme::sized(QFont font, double size, int weight) const {
  const double points = QGuiApplication::font().pointSizeF() * wanted_.textScale;
  font.setPixelSize(static_cast<int>(std::lround(size * textFactor(points))));
  font.setWeight(static_cast<QFont::Weight>(weight));
#if QT_VERSION >= QT_VERSION_CHECK(6, 7, 0)
  font.setFeature(QFont::Tag("tnum"), 1);  // figures that change keep their places
#endif
  return font;
}

QFont Theme::systemFont(double size, int weight) const {
  return sized(QGuiApplication::font(), size, weight);
}

QFont Theme::monospacedFont(double size, int weight) const {
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
