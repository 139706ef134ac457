#include "ui/painted/gradient_arc.h"

#include <QPainter>
#include <algorithm>

#include "ui/painted/unit_gradient.h"

namespace orvane {

QPainterPath GradientArc::path() const {
  const double part = std::clamp(to_, 0.0, 1.0);
  QPainterPath path;
  if (part >= 1) {
    path.addEllipse(boundingRect());
  } else if (part > 0) {
    path.arcMoveTo(boundingRect(), 0);
    path.arcTo(boundingRect(), 0, -360 * part);
  }
  return path;
}

QTransform GradientArc::turn() const {
  const QPointF centre = boundingRect().center();
  return QTransform()
      .translate(centre.x(), centre.y())
      .rotate(startRotation_)
      .translate(-centre.x(), -centre.y());
}

QRectF GradientArc::paintedArea() const {
  const double margin = overhang();
  return turn().map(path()).boundingRect().adjusted(-margin, -margin, margin, margin);
}

QBrush GradientArc::blurredFill() const {
  QBrush gradient = unitGradient(colors_, boundingRect(), gradientStart_, gradientEnd_);
  gradient.setTransform(turn());
  return gradient;
}

void GradientArc::paint(QPainter& painter) const {
  const QPainterPath arc = path();
  if (arc.isEmpty() || colors_.isEmpty()) return;
  painter.strokePath(turn().map(arc), QPen(Qt::black, lineWidth_, Qt::SolidLine,
                                           roundCaps_ ? Qt::RoundCap : Qt::FlatCap));
  tint(painter, blurredFill());
}

}  // namespace orvane
