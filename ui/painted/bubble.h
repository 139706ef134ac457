#pragma once

#include <QtQml/qqmlregistration.h>
#include <QColor>
#include <QPainterPath>

#include "ui/painted/painted_item.h"

namespace orvane {

/// Outline of a rectangle with continuous corners whose arrow reaches the edge of `bounds`:
/// `arrow` points long, on the left or the right, its tip at `tip` from the top, kept clear of the
/// corners. Without an arrow the rectangle fills `bounds`.
[[nodiscard]] QPainterPath bubblePath(const QRectF& bounds, double radius, double arrow,
                                      bool arrowOnRight, double tip);

/// The background of a window beside a control, with an arrow that points at it.
class Bubble : public orvane::PaintedItem {
  Q_OBJECT
  QML_ELEMENT

  Q_PROPERTY(double radius READ radius WRITE setRadius NOTIFY changed)
  Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY changed)
  Q_PROPERTY(QColor borderColor READ borderColor WRITE setBorderColor NOTIFY changed)
  Q_PROPERTY(double arrow READ arrow WRITE setArrow NOTIFY changed)  ///< points, 0 = none
  Q_PROPERTY(bool arrowOnRight READ arrowOnRight WRITE setArrowOnRight NOTIFY changed)
  /// Points from the top of the item to the arrow's tip.
  Q_PROPERTY(double arrowTip READ arrowTip WRITE setArrowTip NOTIFY changed)
  /// Cuts the window to the shape, where the desktop can't blend translucent windows.
  Q_PROPERTY(bool cutsWindow READ cutsWindow WRITE setCutsWindow NOTIFY changed)

 public:
  [[nodiscard]] double radius() const { return radius_; }
  [[nodiscard]] QColor color() const { return color_; }
  [[nodiscard]] QColor borderColor() const { return borderColor_; }
  [[nodiscard]] double arrow() const { return arrow_; }
  [[nodiscard]] bool arrowOnRight() const { return arrowOnRight_; }
  [[nodiscard]] double arrowTip() const { return arrowTip_; }
  [[nodiscard]] bool cutsWindow() const { return cutsWindow_; }

  void setRadius(double value) { announce(assign(radius_, value)); }
  void setColor(const QColor& value) { announce(assign(color_, value)); }
  void setBorderColor(const QColor& value) { announce(assign(borderColor_, value)); }
  void setArrow(double value) { announce(assign(arrow_, value)); }
  void setArrowOnRight(bool value) { announce(assign(arrowOnRight_, value)); }
  void setArrowTip(double value) { announce(assign(arrowTip_, value)); }
  void setCutsWindow(bool value) { announce(assign(cutsWindow_, value)); }

 Q_SIGNALS:
  void changed();

 protected:
  void paint(QPainter& painter) const override;
  void updatePolish() override;
  void geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry) override;

 private:
  void announce(bool isNew);

  double radius_ = 0;
  QColor color_ = Qt::transparent;
  QColor borderColor_ = Qt::transparent;
  double arrow_ = 0;
  bool arrowOnRight_ = false;
  double arrowTip_ = 0;
  bool cutsWindow_ = false;
};

}  // namespace orvane
