#include "ui/painted/history_chart.h"

#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <cmath>

#include "ui/painted/unit_gradient.h"

namespace orvane {

namespace {

/// From 0 on the bottom edge to 1 on the top edge.
double level(double value, double minimum, double maximum) {
  if (!std::isfinite(value)) return 0;
  return maximum > minimum ? (value - minimum) / (maximum - minimum) : 0.5;
}

}  // namespace

QList<QPointF> chartPoints(const QList<double>& values, double minimum, double maximum,
                           QSizeF plot) {
  const double spacing =
      values.size() >= 2 ? plot.width() / static_cast<double>(values.size() - 1) : 0.0;
  QList<QPointF> points;
  points.reserve(values.size());
  for (qsizetype i = 0; i < values.size(); ++i) {
    points << QPointF(std::min(static_cast<double>(i) * spacing, plot.width()),
                      plot.height() * (1 - level(values[i], minimum, maximum)));
  }
  return points;
}

void HistoryChart::paint(QPainter& painter) const {
  paintGrid(painter);
  if (values_.size() < 2) return;
  const QList<QPointF> points = chartPoints(values_, minimum_, maximum_, size());
  paintArea(painter, points);
  paintLine(painter, points);
}

void HistoryChart::paintGrid(QPainter& painter) const {
  const QTransform place = painter.worldTransform();
  // QPainter spreads a hairline that lies between two device pixels over both, wide and pale.
  const double thickness = std::max(1.0, std::floor(place.m22()));
  painter.save();
  painter.resetTransform();
  for (int i = 0; i < gridLines_; ++i) {
    const double y = gridLines_ > 1 ? height() * i / (gridLines_ - 1) : 0.0;
    const QPointF from = place.map(QPointF(0, y));
    const QPointF to = place.map(QPointF(width(), y));
    painter.fillRect(QRectF(std::round(from.x()), std::round(from.y() - thickness / 2),
                            std::round(to.x()) - std::round(from.x()), thickness),
                     gridColor_);
  }
  painter.restore();
}

void HistoryChart::paintArea(QPainter& painter, const QList<QPointF>& points) const {
  QPainterPath area;
  area.moveTo(0, height());
  for (const QPointF& point : points) area.lineTo(point);
  area.lineTo(points.back().x(), height());
  area.closeSubpath();
  painter.fillPath(area, unitGradient(areaColors_, area.boundingRect(), {0, 0}, {0, 1}));
}

void HistoryChart::paintLine(QPainter& painter, const QList<QPointF>& points) const {
  QPainterPath line(points.front());
  for (qsizetype i = 1; i < points.size(); ++i) line.lineTo(points[i]);
  QPen pen(unitGradient(lineColors_, line.boundingRect(), {0, 0}, {1, 0}), lineWidth, Qt::SolidLine,
           Qt::FlatCap, Qt::SvgMiterJoin);
  pen.setMiterLimit(miterLimit);
  painter.strokePath(line, pen);
}

}  // namespace orvane
