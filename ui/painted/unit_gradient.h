#pragma once

#include <QBrush>
#include <QColor>
#include <QList>
#include <QPointF>
#include <QRectF>

class QPainter;

namespace orvane {

/// A linear gradient over `rect` through evenly spaced `colors`, from one unit point to another:
/// (0, 0) is the top left corner, (1, 1) the bottom right one. One colour is a plain brush.
[[nodiscard]] QBrush unitGradient(const QList<QColor>& colors, const QRectF& rect, QPointF from,
                                  QPointF to);

/// Fills `rect` in low strips. QPainter hands a gradient's lines to other threads from 96 at once,
/// which takes more time than it saves.
void fillInStrips(QPainter& painter, const QRectF& rect, const QBrush& brush);

/// Gives all that is painted so far the colours of `brush`, which lies in the painter's
/// coordinates; its opacity stays. A gradient's arc painted in one colour and tinted has no lines
/// for fillInStrips to worry about.
void tint(QPainter& painter, QBrush brush);

}  // namespace orvane
