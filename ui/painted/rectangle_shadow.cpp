#include "ui/painted/rectangle_shadow.h"

#include <QPainter>

#include "ui/painted/smooth_path.h"

namespace orvane {

void RectangleShadow::paint(QPainter& painter) const {
  painter.fillPath(smoothRectanglePath(snappedRect().translated(0, drop_), radius_), Qt::black);
}

void RectangleShadow::paintSharp(QPainter& painter) const {
  // The cut is half a point smaller than the rectangle: no gap shows along its soft edge.
  const QRectF inside = snappedRect().adjusted(0.5, 0.5, -0.5, -0.5);
  painter.setCompositionMode(QPainter::CompositionMode_DestinationOut);
  painter.fillPath(smoothRectanglePath(inside, radius_), Qt::black);
}

}  // namespace orvane
