#include "ui/painted/share_bar.h"

#include <QPainter>
#include <QPainterPath>
#include <algorithm>

#include "ui/painted/smooth_path.h"

namespace orvane {

double barFillWidth(double barWidth, double share, double inset) {
  return std::max(0.0, (barWidth - 2 * inset) * share);
}

void ShareBar::paint(QPainter& painter) const {
  const QPainterPath track = smoothRectanglePath({0, 0, width(), height()}, cornerRadius);
  painter.fillPath(track, trackColor_);
  const double fill = barFillWidth(width(), share_, inset_);
  if (fill <= 0) return;
  const QPainterPath shape = smoothRectanglePath({inset_, 0, fill, height()}, cornerRadius);
  // A fill narrower than the round end of the track would stick out of it.
  painter.fillPath(inset_ < cornerRadius ? shape.intersected(track) : shape, fillColor_);
}

}  // namespace orvane
