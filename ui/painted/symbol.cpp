#include "ui/painted/symbol.h"

#include <QFile>
#include <QPainter>
#include <QSvgRenderer>
#include <algorithm>
#include <cmath>

namespace orvane {

namespace {

/// Side of a symbol's square, in points, beside text of `pointSize`.
double sideOf(double pointSize) {
  return std::round(pointSize * 1.25);
}

}  // namespace

Symbol::Symbol() {
  setImplicitSize(sideOf(pointSize_), sideOf(pointSize_));
}

void Symbol::setPointSize(double value) {
  if (!assign(pointSize_, value)) return;
  setImplicitSize(sideOf(value), sideOf(value));
  Q_EMIT changed();
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
  // Drawn black, then coloured: a translucent colour must not add up where shapes overlap.
  renderer.render(&painter, square);
  painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
  painter.fillRect(QRectF(0, 0, width(), height()), color_);
}

}  // namespace orvane
