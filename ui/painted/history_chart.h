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

  Q_PROPERTY(QList<double> values READ values WRITE setValues NOTIFY changed)
  Q_PROPERTY(double minimum READ minimum WRITE setMinimum NOTIFY changed)
  Q_PROPERTY(double maximum READ maximum WRITE setMaximum NOTIFY changed)
  Q_PROPERTY(double lineWidth READ lineWidth WRITE setLineWidth NOTIFY changed)
  /// From the leading to the trailing edge of the line.
  Q_PROPERTY(QList<QColor> lineColors READ lineColors WRITE setLineColors NOTIFY changed)
  /// From the top to the bottom edge of the area.
  Q_PROPERTY(QList<QColor> areaColors READ areaColors WRITE setAreaColors NOTIFY changed)
  Q_PROPERTY(int gridLines READ gridLines WRITE setGridLines NOTIFY changed)
  Q_PROPERTY(QColor gridColor READ gridColor WRITE setGridColor NOTIFY changed)

 public:
  [[nodiscard]] QList<double> values() const { return values_; }
  [[nodiscard]] double minimum() const { return minimum_; }
  [[nodiscard]] double maximum() const { return maximum_; }
  [[nodiscard]] double lineWidth() const { return lineWidth_; }
  [[nodiscard]] QList<QColor> lineColors() const { return lineColors_; }
  [[nodiscard]] QList<QColor> areaColors() const { return areaColors_; }
  [[nodiscard]] int gridLines() const { return gridLines_; }
  [[nodiscard]] QColor gridColor() const { return gridColor_; }

  void setValues(const QList<double>& value) { announce(assign(values_, value)); }
  void setMinimum(double value) { announce(assign(minimum_, value)); }
  void setMaximum(double value) { announce(assign(maximum_, value)); }
  void setLineWidth(double value) { announce(assign(lineWidth_, value)); }
  void setLineColors(const QList<QColor>& value) { announce(assign(lineColors_, value)); }
  void setAreaColors(const QList<QColor>& value) { announce(assign(areaColors_, value)); }
  void setGridLines(int value) { announce(assign(gridLines_, value)); }
  void setGridColor(const QColor& value) { announce(assign(gridColor_, value)); }

 Q_SIGNALS:
  void changed();

 protected:
  void paint(QPainter& painter) const override;
  // The farthest a mitred corner of the line may reach.
  [[nodiscard]] double overhang() const override { return miterLimit * lineWidth_ / 2; }

 private:
  static constexpr double miterLimit = 10;

  void announce(bool isNew) {
    if (isNew) Q_EMIT changed();
  }
  void paintGrid(QPainter& painter) const;
  void paintArea(QPainter& painter, const QList<QPointF>& points) const;
  void paintLine(QPainter& painter, const QList<QPointF>& points) const;

  QList<double> values_;
  double minimum_ = 0;
  double maximum_ = 100;
  double lineWidth_ = 2;
  QList<QColor> lineColors_;
  QList<QColor> areaColors_;
  int gridLines_ = 0;
  QColor gridColor_ = Qt::transparent;
};

}  // namespace orvane
