#pragma once

#include <QtQml/qqmlregistration.h>
#include <QColor>

#include "ui/painted/painted_item.h"

namespace orvane {

/// A rectangle with continuous corners: one colour or a gradient inside, an optional line inside
/// its edge.
class SmoothRectangle : public orvane::PaintedItem {
  Q_OBJECT
  QML_ELEMENT

  Q_PROPERTY(double radius READ radius WRITE setRadius NOTIFY changed)
  Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY changed)
  /// Two or three colours instead of `color`.
  Q_PROPERTY(
      QList<QColor> gradientColors READ gradientColors WRITE setGradientColors NOTIFY changed)
  Q_PROPERTY(QPointF gradientStart READ gradientStart WRITE setGradientStart NOTIFY changed)
  Q_PROPERTY(QPointF gradientEnd READ gradientEnd WRITE setGradientEnd NOTIFY changed)
  Q_PROPERTY(QColor borderColor READ borderColor WRITE setBorderColor NOTIFY changed)
  Q_PROPERTY(double borderWidth READ borderWidth WRITE setBorderWidth NOTIFY changed)

 public:
  [[nodiscard]] double radius() const { return radius_; }
  [[nodiscard]] QColor color() const { return color_; }
  [[nodiscard]] QList<QColor> gradientColors() const { return gradientColors_; }
  [[nodiscard]] QPointF gradientStart() const { return gradientStart_; }
  [[nodiscard]] QPointF gradientEnd() const { return gradientEnd_; }
  [[nodiscard]] QColor borderColor() const { return borderColor_; }
  [[nodiscard]] double borderWidth() const { return borderWidth_; }

  void setRadius(double value) { announce(assign(radius_, value)); }
  void setColor(const QColor& value) { announce(assign(color_, value)); }
  void setGradientColors(const QList<QColor>& value) { announce(assign(gradientColors_, value)); }
  void setGradientStart(QPointF value) { announce(assign(gradientStart_, value)); }
  void setGradientEnd(QPointF value) { announce(assign(gradientEnd_, value)); }
  void setBorderColor(const QColor& value) { announce(assign(borderColor_, value)); }
  void setBorderWidth(double value) { announce(assign(borderWidth_, value)); }

 Q_SIGNALS:
  void changed();

 protected:
  void paint(QPainter& painter) const override;

 private:
  void announce(bool isNew) {
    if (isNew) Q_EMIT changed();
  }

  double radius_ = 0;
  QColor color_ = Qt::transparent;
  QList<QColor> gradientColors_;
  QPointF gradientStart_{0, 0};
  QPointF gradientEnd_{1, 0};
  QColor borderColor_ = Qt::transparent;
  double borderWidth_ = 0;
};

}  // namespace orvane
