#pragma once

#include <QBrush>
#include <QColor>
#include <QList>
#include <QPointF>
#include <QRectF>

namespace orvane {

/// A linear gradient over `rect` through evenly spaced `colors`, from one unit point to another:
/// (0, 0) is the top left corner, (1, 1) the bottom right one. One colour is a plain brush.
[[nodiscard]] QBrush unitGradient(const QList<QColor>& colors, const QRectF& rect, QPointF from,
                                  QPointF to);

}  // namespace orvane
