#include "ui/painted/unit_gradient.h"

#include <QLinearGradient>

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

}  // namespace orvane
