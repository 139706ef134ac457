#include "ui/painted/gradient_arc.h"

#include <QPainter>
#include <algorithm>

#include "ui/painted/unit_gradient.h"

namespace orvane {

QPainterPath GradientArc::path() const {
  const double part = std::clamp(to_, 0.0, 1.0);
  const QRectF bounds(0, 0, width(), height());
  QPainterPath path;
  if (part >= 1) {
    path.addEllipse(bounds);
  } else if (part > 0) {
    path.arcMoveTo(bounds, 0);
    path.arcTo(bounds, 0, -360 * part);
  }
  return path;
}

QTransform GradientArc::turn() const {
  const QPointF centre(width() / 2, height() / 2);
  return QTransform()
      .translate(centre.x(), centre.y())
      .rotate(startRotation_)
      .translate(-centre.x(), -centre.y());
}

QRectF GradientArc::paintedArea() const {
  const double margin = overhang();
  return turn().map(path()).boundingRect().adjusted(-margin, -margin, margin, margin);
}

void GradientArc::paint(QPainter& painter) const {
  const QPainterPath arc = path();
  if (arc.isEmpty() || colors_.isEmpty()) return;
  painter.setBrush(Qt::NoBrush);
  painter.setPen(
      QPen(unitGradient(colors_, {0, 0, width(), height()}, gradientStart_, gradientEnd_),
           lineWidth_, Qt::SolidLine, roundCaps_ ? Qt::RoundCap : Qt::FlatCap));
  painter.setTransform(turn(), true);
  painter.drawPath(arc);
}

}  // namespace orvane
