#include "ui/painted/blurred_text.h"

#include <QPainter>

#include "ui/painted/blur.h"

namespace orvane {

double BlurredText::overhang() const {
  return GradientText::overhang() + blurReach(blurRadius_);
}

void BlurredText::paint(QPainter& painter) const {
  paintBlurred(painter, {0, 0, width(), height()}, blurRadius_, 1,
               [this](QPainter& target) { GradientText::paint(target); });
}

}  // namespace orvane
