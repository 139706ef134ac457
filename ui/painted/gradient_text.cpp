#include "ui/painted/gradient_text.h"

#include <QFontMetricsF>
#include <QPainter>
#include <cmath>

#include "ui/painted/unit_gradient.h"

namespace orvane {

void GradientText::inputChanged() {
  PaintedItem::inputChanged();
  const QFontMetricsF metrics(font_);
  setImplicitSize(std::ceil(metrics.horizontalAdvance(text_)), std::ceil(metrics.height()));
}

void GradientText::paint(QPainter& painter) const {
  const QRectF bounds(0, 0, width(), height());
  painter.setFont(font_);
  painter.setPen(QPen(unitGradient(colors_, bounds, {0, 0}, {1, 1}), 1));
  painter.drawText(bounds, Qt::AlignCenter | Qt::TextSingleLine, text_);
}

}  // namespace orvane
