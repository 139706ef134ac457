#include "ui/painted/share_bar.h"

#include <QPainter>
#include <QPainterPath>

#include "ui/painted/smooth_path.h"

namespace orvane {

void ShareBar::paint(QPainter& painter) const {
  const QRectF bar = snappedRect();
  const QPainterPath track = smoothRectanglePath(bar, cornerRadius);
  painter.fillPath(track, trackColor_);
  const double fill = (bar.width() - 2 * inset_) * share_;
  if (fill <= 0) return;
  const QPainterPath shape =
      smoothRectanglePath({bar.x() + inset_, bar.y(), fill, bar.height()}, cornerRadius);
  // A fill narrower than the round end of the track would stick out of it.
  painter.fillPath(inset_ < cornerRadius ? shape.intersected(track) : shape, fillColor_);
}

}  // namespace orvane
