#pragma once

#include <QtQml/qqmlregistration.h>
#include <QColor>
#include <QList>
#include <QPointF>
#include <QSizeF>

#include "ui/painted/painted_item.h"

namespace orvane {

/// Where values lie in a plot: spread evenly over its whole width, `minimum` on the bottom edge,
/// `maximum` on the top edge. Without a range between the two everything lies at mid-height; a
/// value that is no number lies on the bottom edge.
[[nodiscard]] QList<QPointF> chartPoints(const QList<double>& values, double minimum,
                                         double maximum, QSizeF plot);

/// A plot of values, oldest first, as a line with a filled area below it, over evenly spaced
/// horizontal grid lines from its top to its bottom edge. Fewer than two values draw the grid only.
class HistoryChart : public orvane::PaintedItem {
  Q_OBJECT
  QML_ELEMENT

  Q_PROPERTY(QList<double> values MEMBER values_ NOTIFY changed)
  Q_PROPERTY(double minimum MEMBER minimum_ NOTIFY changed)
  Q_PROPERTY(double maximum MEMBER maximum_ NOTIFY changed)
  /// From the leading to the trailing edge of the line.
  Q_PROPERTY(QList<QColor> lineColors MEMBER lineColors_ NOTIFY changed)
  /// From the top to the bottom edge of the area.
  Q_PROPERTY(QList<QColor> areaColors MEMBER areaColors_ NOTIFY changed)
  Q_PROPERTY(int gridLines MEMBER gridLines_ NOTIFY changed)
  Q_PROPERTY(QColor gridColor MEMBER gridColor_ NOTIFY changed)

 protected:
  void paint(QPainter& painter) const override;
  // The farthest a mitred corner of the line may reach.
  [[nodiscard]] double overhang() const override { return miterLimit * lineWidth / 2; }

 private:
  static constexpr double lineWidth = 2;
  static constexpr double miterLimit = 10;

  void paintGrid(QPainter& painter) const;
  void paintArea(QPainter& painter, const QList<QPointF>& points) const;
  void paintLine(QPainter& painter, const QList<QPointF>& points) const;

  QList<double> values_;
  double minimum_ = 0;
  double maximum_ = 100;
  QList<QColor> lineColors_;
  QList<QColor> areaColors_;
  int gridLines_ = 0;
  QColor gridColor_ = Qt::transparent;
};

}  // namespace orvane
