#include "ui/style/usage_colors.h"

#include "ui/style/palette.h"

namespace orvane {

QList<QColor> UsageColors::gradient() const {
  const Palette& colors = palette(dark_ ? ColorScheme::dark : ColorScheme::light);
  if (isHigh()) return {colors.red, colors.orange, colors.yellow};
  return {colors.blue, colors.purple, colors.pink};
}

}  // namespace orvane
