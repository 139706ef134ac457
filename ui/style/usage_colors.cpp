#include "ui/style/usage_colors.h"

#include "ui/style/palette.h"

namespace orvane {

QList<QColor> usageGradientColors(double usage, ColorScheme scheme) {
  const Palette& colors = palette(scheme);
  if (isHighUsage(usage)) return {colors.red, colors.orange, colors.yellow};
  return {colors.blue, colors.purple, colors.pink};
}

QList<QColor> usageRingColors(double usage, ColorScheme scheme) {
  QList<QColor> colors = usageGradientColors(usage, scheme);
  if (isHighUsage(usage)) colors.removeLast();
  return colors;
}

}  // namespace orvane
