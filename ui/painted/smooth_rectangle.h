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

  Q_PROPERTY(double radius MEMBER radius_ NOTIFY changed)
  Q_PROPERTY(QColor color MEMBER color_ NOTIFY changed)
  /// Two or three colours instead of `color`.
  Q_PROPERTY(QList<QColor> gradientColors MEMBER gradientColors_ NOTIFY changed)
  Q_PROPERTY(QPointF gradientStart MEMBER gradientStart_ NOTIFY changed)
  Q_PROPERTY(QPointF gradientEnd MEMBER gradientEnd_ NOTIFY changed)
  Q_PROPERTY(QColor borderColor MEMBER borderColor_ NOTIFY changed)
  Q_PROPERTY(double borderWidth MEMBER borderWidth_ NOTIFY changed)

 protected:
  void paint(QPainter& painter) const override;

 private:
  double radius_ = 0;
  QColor color_ = Qt::transparent;
  QList<QColor> gradientColors_;
  QPointF gradientStart_{0, 0};
  QPointF gradientEnd_{1, 0};
  QColor borderColor_ = Qt::transparent;
  double borderWidth_ = 0;
};

}  // namespace orvane
