#include "ui/painted/unit_gradient.h"

#include <QLinearGradient>
#include <QPaintDevice>
#include <QPainter>
#include <algorithm>

namespace orvane {

QBrush unitGradient(const QList<QColor>& colors, const QRectF& rect, QPointF from, QPointF to) {
  if (colors.isEmpty()) return {};
  if (colors.size() == 1) return colors.front();
  const auto place = [&](QPointF unit) {
    return rect.topLeft() + QPointF(unit.x() * rect.width(), unit.y() * rect.height());
  };
  QLinearGradient gradient(place(from), place(to));
  for (qsizetype i = 0; i < colors.size(); ++i) {
    gradient.setColorAt(static_cast<double>(i) / static_cast<double>(colors.size() - 1), colors[i]);
  }
  return gradient;
}

void fillInStrips(QPainter& painter, const QRectF& rect, const QBrush& brush) {
  constexpr double height = 16;
  for (double y = rect.top(); y < rect.bottom(); y += height) {
    painter.fillRect(QRectF(rect.left(), y, rect.width(), std::min(height, rect.bottom() - y)),
                     brush);
  }
}

void tint(QPainter& painter, QBrush brush) {
  brush.setTransform(brush.transform() * painter.worldTransform());
  const QRect all(0, 0, painter.device()->width(), painter.device()->height());
  painter.save();
  painter.resetTransform();
  painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
  fillInStrips(painter, all, brush);
  painter.restore();
}

}  // namespace orvane
