#pragma once

#include <QtQml/qqmlregistration.h>
#include <QColor>

#include "ui/painted/painted_item.h"

namespace orvane {

/// The window's background once more, opaque on one edge of the item and clear on the other: what
/// scrolls below it dissolves. The background is one colour, or a gradient from the window's top
/// left to its bottom right.
class EdgeFade : public orvane::PaintedItem {
  Q_OBJECT
  QML_ELEMENT

  Q_PROPERTY(QList<QColor> colors MEMBER colors_ NOTIFY changed)
  Q_PROPERTY(bool opaqueBelow MEMBER opaqueBelow_ NOTIFY changed)  ///< else above

 protected:
  void paint(QPainter& painter) const override;

 private:
  QList<QColor> colors_;
  bool opaqueBelow_ = false;
};

}  // namespace orvane
