#pragma once

#include <QtQml/qqmlregistration.h>
#include <QColor>

#include "ui/painted/painted_item.h"

namespace orvane {

/// The shadow that a rounded rectangle of the item's size casts, as soft as `blurRadius` says: only
/// what of it lies outside the rectangle, which may be translucent.
class RectangleShadow : public orvane::PaintedItem {
  Q_OBJECT
  QML_ELEMENT

  Q_PROPERTY(double radius READ radius WRITE setRadius NOTIFY changed)  ///< of the corners
  /// Points by which the shadow lies lower than the rectangle.
  Q_PROPERTY(double drop READ drop WRITE setDrop NOTIFY changed)
  Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY changed)

 public:
  [[nodiscard]] double radius() const { return radius_; }
  [[nodiscard]] double drop() const { return drop_; }
  [[nodiscard]] QColor color() const { return color_; }

  void setRadius(double value) { announce(assign(radius_, value)); }
  void setDrop(double value) { announce(assign(drop_, value)); }
  void setColor(const QColor& value) { announce(assign(color_, value)); }

 Q_SIGNALS:
  void changed();

 protected:
  void paint(QPainter& painter) const override;
  void paintSharp(QPainter& painter) const override;
  [[nodiscard]] double overhang() const override { return drop_; }

 private:
  void announce(bool isNew) {
    if (isNew) Q_EMIT changed();
  }

  double radius_ = 0;
  double drop_ = 0;
  QColor color_ = Qt::black;
};

}  // namespace orvane
