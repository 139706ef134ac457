#include "ui/painted/rectangle_shadow.h"

#include <QPainter>

#include "ui/painted/smooth_path.h"

namespace orvane {

void RectangleShadow::paint(QPainter& painter) const {
  const QRectF bounds(0, 0, width(), height());
  QColor opaque = color_;
  opaque.setAlphaF(1);
  const QRectF dropped = bounds.translated(0, drop_);
  paintBlurred(painter, dropped, blurRadius_, color_.alphaF(), [&](QPainter& target) {
    target.fillPath(smoothRectanglePath(dropped, radius_), opaque);
  });
  // Half a point less than the rectangle, so that no gap shows along its soft edge.
  painter.setCompositionMode(QPainter::CompositionMode_DestinationOut);
  painter.fillPath(smoothRectanglePath(bounds.adjusted(0.5, 0.5, -0.5, -0.5), radius_), Qt::black);
}

}  // namespace orvane
