#include "ui/style/usage_colors.h"

#include <algorithm>

#include "ui/style/palette.h"

namespace orvane {
namespace {

QColor mixed(const QColor& from, const QColor& to, double share) {
  const auto part = [&](int a, int b) { return qRound(a + (b - a) * share); };
  return {part(from.red(), to.red()), part(from.green(), to.green()), part(from.blue(), to.blue())};
}

}  // namespace

QList<QColor> UsageColors::gradient() const {
  const Palette& colors = palette(dark_ ? ColorScheme::dark : ColorScheme::light);
  const double share = std::clamp(warmth_, 0.0, 1.0);
  return {mixed(colors.blue, colors.red, share), mixed(colors.purple, colors.orange, share),
          mixed(colors.pink, colors.yellow, share)};
}

}  // namespace orvane
