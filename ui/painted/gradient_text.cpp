#include "ui/painted/gradient_text.h"

#include <QFontMetricsF>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include "ui/painted/unit_gradient.h"

namespace orvane {

void GradientText::inputChanged() {
  PaintedItem::inputChanged();
  const QFontMetricsF metrics(font_);
  double width = std::ceil(metrics.horizontalAdvance(text_));
  fitting_ = font_;
  if (maximumWidth_ > 0 && width > maximumWidth_) {
    fitting_.setPixelSize(std::max(1, static_cast<int>(font_.pixelSize() * maximumWidth_ / width)));
    width = std::ceil(QFontMetricsF(fitting_).horizontalAdvance(text_));
  }
  setImplicitSize(width, std::ceil(metrics.height()));
}

void GradientText::paint(QPainter& painter) const {
  painter.setFont(fitting_);
  painter.setPen(Qt::black);
  painter.drawText(boundingRect(), Qt::AlignCenter | Qt::TextSingleLine, text_);
  tint(painter, unitGradient(colors_, boundingRect(), {0, 0}, {1, 1}));
}

}  // namespace orvane
