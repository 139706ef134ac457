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

  Q_PROPERTY(double radius MEMBER radius_ NOTIFY changed)  ///< of the corners
  /// Points by which the shadow lies lower than the rectangle.
  Q_PROPERTY(double drop MEMBER drop_ NOTIFY changed)
  Q_PROPERTY(QColor color MEMBER color_ NOTIFY changed)

 protected:
  void paint(QPainter& painter) const override;
  [[nodiscard]] QBrush blurredFill() const override { return color_; }
  void paintSharp(QPainter& painter) const override;
  [[nodiscard]] double overhang() const override { return drop_; }

 private:
  double radius_ = 0;
  double drop_ = 0;
  QColor color_ = Qt::black;
};

}  // namespace orvane
