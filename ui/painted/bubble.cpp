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

QPainterPath bubblePath(const QRectF& bounds, double radius, double arrow, bool arrowOnRight,
                        double tip) {
  const QRectF body = bounds.adjusted(arrowOnRight ? 0 : arrow, 0, arrowOnRight ? -arrow : 0, 0);
  const QPainterPath rectangle = smoothRectanglePath(body, radius);
  if (arrow <= 0) return rectangle;
  const double clear = std::min(bounds.height() / 2, radius * 1.3 + arrow * 1.1);
  const double y = std::clamp(tip, clear, std::max(clear, bounds.height() - clear));
  QTransform place;
  place.translate(arrowOnRight ? bounds.right() : bounds.left(), bounds.top() + y);
  if (arrowOnRight) place.scale(-1, 1);
  return rectangle.united(place.map(arrowPath(arrow)));
}

void Bubble::inputChanged() {
  PaintedItem::inputChanged();
  polish();
}

void Bubble::paint(QPainter& painter) const {
  const QRectF bounds(0, 0, width(), height());
  painter.fillPath(bubblePath(bounds, radius_, arrow_, arrowOnRight_, arrowTip_), color_);
  if (borderColor_.alpha() == 0) return;
  const double inset = borderWidth / 2;
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(borderColor_, borderWidth));
  painter.drawPath(bubblePath(bounds.adjusted(inset, inset, -inset, -inset), radius_ - inset,
                              arrow_, arrowOnRight_, arrowTip_ - inset));
}

void Bubble::updatePolish() {
  if (window() == nullptr) return;
  QRegion mask;
  if (cutsWindow_ && arrow_ > 0) {
    const QRectF bounds(0, 0, width(), height());
    mask = QRegion(
        bubblePath(bounds, radius_, arrow_, arrowOnRight_, arrowTip_).toFillPolygon().toPolygon());
  }
  if (mask != window()->mask()) window()->setMask(mask);
}

void Bubble::geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry) {
  PaintedItem::geometryChange(newGeometry, oldGeometry);
  polish();
}

}  // namespace orvane
