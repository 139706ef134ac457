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
  painter.setFont(font_);
  painter.setPen(QPen(unitGradient(colors_, boundingRect(), {0, 0}, {1, 1}), 1));
  painter.drawText(boundingRect(), Qt::AlignCenter | Qt::TextSingleLine, text_);
}

}  // namespace orvane
