#include "ui/painted/smooth_rectangle.h"

#include <QPainter>

#include "ui/painted/smooth_path.h"
#include "ui/painted/unit_gradient.h"

namespace orvane {

void SmoothRectangle::paint(QPainter& painter) const {
  const QRectF bounds = snappedRect();
  const QBrush fill = gradientColors_.isEmpty()
                          ? QBrush(color_)
                          : unitGradient(gradientColors_, bounds, gradientStart_, gradientEnd_);
  painter.fillPath(smoothRectanglePath(bounds, radius_), fill);
  if (borderWidth_ <= 0 || borderColor_.alpha() == 0) return;
  const double inset = borderWidth_ / 2;
  painter.strokePath(
      smoothRectanglePath(bounds.adjusted(inset, inset, -inset, -inset), radius_ - inset),
      QPen(borderColor_, borderWidth_));
}

}  // namespace orvane
