#include "ui/painted/blurred_arc.h"

#include <QPainter>

#include "ui/painted/blur.h"

namespace orvane {

QRectF BlurredArc::paintedArea() const {
  const double reach = blurReach(blurRadius_);
  return GradientArc::paintedArea().adjusted(-reach, -reach, reach, reach);
}

void BlurredArc::paint(QPainter& painter) const {
  paintBlurred(painter, GradientArc::paintedArea(), blurRadius_, 1,
               [this](QPainter& target) { GradientArc::paint(target); });
}

}  // namespace orvane
