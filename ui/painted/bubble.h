#pragma once

#include <QtQml/qqmlregistration.h>
#include <QColor>
#include <QPainterPath>

#include "ui/painted/painted_item.h"

namespace orvane {

/// The background of a window beside a control, with an arrow that points at it.
class Bubble : public orvane::PaintedItem {
  Q_OBJECT
  QML_ELEMENT

  Q_PROPERTY(double radius MEMBER radius_ NOTIFY changed)
  Q_PROPERTY(QColor color MEMBER color_ NOTIFY changed)
  Q_PROPERTY(QColor borderColor MEMBER borderColor_ NOTIFY changed)
  Q_PROPERTY(double arrow MEMBER arrow_ NOTIFY changed)  ///< points, 0 = none
  Q_PROPERTY(bool arrowOnRight MEMBER arrowOnRight_ NOTIFY changed)
  /// Points from the top of the item to the arrow's tip.
  Q_PROPERTY(double arrowTip MEMBER arrowTip_ NOTIFY changed)
  /// Cuts the window to the shape, where the desktop can't blend translucent windows.
  Q_PROPERTY(bool cutsWindow MEMBER cutsWindow_ NOTIFY changed)

 protected:
  void paint(QPainter& painter) const override;
  void inputChanged() override;
  void updatePolish() override;
  void geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry) override;

 private:
  /// The outline `inset` points inside the item's edge. The arrow's tip is kept clear of the
  /// corners; without an arrow the rectangle fills the item.
  [[nodiscard]] QPainterPath outline(double inset) const;

  double radius_ = 0;
  QColor color_ = Qt::transparent;
  QColor borderColor_ = Qt::transparent;
  double arrow_ = 0;
  bool arrowOnRight_ = false;
  double arrowTip_ = 0;
  bool cutsWindow_ = false;
};

}  // namespace orvane
