#include "ui/painted/edge_fade.h"

#include <QPainter>
#include <QQuickWindow>

#include "ui/painted/unit_gradient.h"

namespace orvane {

namespace {

/// Evenly spaced from the opaque edge. Eased, as a straight fade leaves a bright stripe of what has
/// all but left the view.
const QList<QColor> veil = {QColor(0, 0, 0, 255), QColor(0, 0, 0, 244), QColor(0, 0, 0, 140),
                            QColor(0, 0, 0, 36), QColor(0, 0, 0, 0)};

}  // namespace

void EdgeFade::paint(QPainter& painter) const {
  const QRectF window(mapFromScene({0, 0}), QSizeF(this->window()->size()));
  painter.fillRect(boundingRect(), unitGradient(colors_, window, {0, 0}, {1, 1}));
  const QPointF opaque(0, opaqueBelow_ ? 1 : 0);
  const QPointF clear(0, opaqueBelow_ ? 0 : 1);
  painter.setCompositionMode(QPainter::CompositionMode_DestinationIn);
  painter.fillRect(boundingRect(), unitGradient(veil, boundingRect(), opaque, clear));
}

}  // namespace orvane
