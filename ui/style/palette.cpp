#include "ui/style/palette.h"

namespace orvane {

namespace {

QColor srgb(double red, double green, double blue) {
  return QColor::fromRgbF(static_cast<float>(red), static_cast<float>(green),
                          static_cast<float>(blue));
}

QColor white(double opacity) {
  return withOpacity(Qt::white, opacity);
}

QColor black(double opacity) {
  return withOpacity(Qt::black, opacity);
}

}  // namespace

Palette::Palette(ColorScheme scheme, bool highContrast) {
  const bool isDark = scheme == ColorScheme::dark;
#define ORVANE_CHOOSE_COLOR(name, light, dark) name = isDark ? (dark) : (light);
  ORVANE_COLORS(ORVANE_CHOOSE_COLOR)  // NOLINT(bugprone-branch-clone): some are the same in both
#undef ORVANE_CHOOSE_COLOR
  if (!highContrast) return;
  label = isDark ? Qt::white : Qt::black;
  secondaryLabel = windowOutline = divider = label;
  focusRing = rowOutline = blue;
}

const Palette& palette(ColorScheme scheme) {
  static const Palette light(ColorScheme::light);
  static const Palette dark(ColorScheme::dark);
  return scheme == ColorScheme::dark ? dark : light;
}

QColor withOpacity(QColor color, double opacity) {
  color.setAlphaF(color.alphaF() * static_cast<float>(opacity));
  return color;
}

}  // namespace orvane
