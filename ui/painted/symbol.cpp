#include "ui/painted/symbol.h"

#include <QFile>
#include <QPainter>
#include <QSvgRenderer>
#include <algorithm>
#include <cmath>

namespace orvane {

Symbol::Symbol() {
  Symbol::inputChanged();
}

void Symbol::inputChanged() {
  PaintedItem::inputChanged();
  const double side = std::round(pointSize_ * 1.25);
  setImplicitSize(side, side);
}

QString Symbol::drawing(const QString& name) {
  const QString path = QStringLiteral(":/qt/qml/Orvane/symbols/%1.svg").arg(name);
  return QFile::exists(path) ? path : QString();
}

void Symbol::paint(QPainter& painter) const {
  const QString path = drawing(name_);
  if (path.isEmpty()) return;
  QSvgRenderer renderer(path);
  const double side = std::min(width(), height());
  const QRectF square((width() - side) / 2, (height() - side) / 2, side, side);
  // QSvgRenderer draws black and the colour follows: translucent shapes would add up where they
  // overlap.
  renderer.render(&painter, square);
  painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
  painter.fillRect(boundingRect(), color_);
}

}  // namespace orvane
