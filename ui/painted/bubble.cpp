#include "ui/painted/bubble.h"

#include <QPainter>
#include <QQuickWindow>
#include <QRegion>
#include <algorithm>

#include "ui/painted/smooth_path.h"

namespace orvane {

namespace {

constexpr double borderWidth = 1;

/// The arrow as a path around the point (0, 0), its tip, with the body to its right.
QPainterPath arrowPath(double length) {
  QPainterPath path;
  const double half = length * 1.1;
  const double round = length * 0.22;
  path.moveTo(length + 1, -half);  // one point inside the body, so that no seam is left
  path.lineTo(length, -half);
  path.lineTo(round, -round);
  path.quadTo(0, 0, round, round);
  path.lineTo(length, half);
  path.lineTo(length + 1, half);
  path.closeSubpath();
  return path;
}

}  // namespace

QPainterPath Bubble::outline(double inset) const {
  const QRectF bounds = boundingRect().adjusted(inset, inset, -inset, -inset);
  const double radius = radius_ - inset;
  const QRectF body =
      bounds.adjusted(arrowOnRight_ ? 0 : arrow_, 0, arrowOnRight_ ? -arrow_ : 0, 0);
  const QPainterPath rectangle = smoothRectanglePath(body, radius);
  if (arrow_ <= 0) return rectangle;
  const double clear = std::min(bounds.height() / 2, radius * 1.3 + arrow_ * 1.1);
  const double tip = std::clamp(arrowTip_ - inset, clear, std::max(clear, bounds.height() - clear));
  QTransform place;
  place.translate(arrowOnRight_ ? bounds.right() : bounds.left(), bounds.top() + tip);
  if (arrowOnRight_) place.scale(-1, 1);
  return rectangle.united(place.map(arrowPath(arrow_)));
}

void Bubble::inputChanged() {
  PaintedItem::inputChanged();
  polish();
}

void Bubble::paint(QPainter& painter) const {
  painter.fillPath(outline(0), color_);
  if (borderColor_.alpha() != 0) {
    painter.strokePath(outline(borderWidth / 2), QPen(borderColor_, borderWidth));
  }
}

void Bubble::updatePolish() {
  if (window() == nullptr) return;
  QRegion mask;
  if (cutsWindow_ && arrow_ > 0) mask = QRegion(outline(0).toFillPolygon().toPolygon());
  if (mask != window()->mask()) window()->setMask(mask);
}

void Bubble::geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry) {
  PaintedItem::geometryChange(newGeometry, oldGeometry);
  polish();
}

}  // namespace orvane
