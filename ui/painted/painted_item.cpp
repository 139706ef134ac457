#include "ui/painted/painted_item.h"

#include <QPainter>
#include <QQuickWindow>
#include <QSGImageNode>
#include <algorithm>
#include <cmath>

#include "ui/painted/blur.h"

namespace orvane {

PaintedItem::PaintedItem(QQuickItem* parent) : QQuickItem(parent) {
  setFlag(ItemHasContents);
  setSmooth(false);
  connect(this, &PaintedItem::changed, this, &PaintedItem::inputChanged);
}

bool PaintedItem::isVisibleMove(double points) const {
  // Device pixels; what is out of focus has no edge that shows so little.
  const double smallestStep = 0.5 + blurRadius_ / 8;
  return window() == nullptr ||
         std::abs(points) * window()->effectiveDevicePixelRatio() >= smallestStep;
}

void PaintedItem::repaint() {
  dirty_ = true;
  update();
}

bool PaintedItem::assignStep(double& member, double value, double length) {
  if (member == value) return false;
  unpaintedMove_ += (value - member) * length;
  member = value;
  if (isVisibleMove(unpaintedMove_)) repaint();
  return true;
}

QRectF PaintedItem::paintedArea() const {
  const double margin = overhang();
  return boundingRect().adjusted(-margin, -margin, margin, margin);
}

QRectF PaintedItem::pictureArea() const {
  const double reach = blurReach(blurRadius_);
  return paintedArea().adjusted(-reach, -reach, reach, reach);
}

QImage PaintedItem::render(const QRectF& area, QPointF offset, double scale) const {
  const auto pixels = [scale](double length, double start) {
    return std::max(1, static_cast<int>(std::ceil(start + length * scale - 1e-6)));
  };
  QImage image(pixels(area.width(), offset.x()), pixels(area.height(), offset.y()),
               QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
  painter.translate(offset);
  if (isStretched()) {
    // The drawing fills the last pixels too: enlarged, half empty ones show as a fading edge.
    painter.scale(image.width() / area.width(), image.height() / area.height());
  } else {
    painter.scale(scale, scale);
  }
  painter.translate(-area.topLeft());
  painter.save();
  if (blurRadius_ > 0) {
    paintBlurred(painter, paintedArea(), blurRadius_, blurredFill(),
                 [this](QPainter& target) { paint(target); });
  } else {
    paint(painter);
  }
  painter.restore();
  paintSharp(painter);
  return image;
}

void PaintedItem::snap(double scale) {
  snapped_ = boundingRect();
  if (isStretched()) return;
  const QPointF place = mapToScene({0, 0});
  const auto onPixel = [scale](QPointF point) {
    return QPointF(std::round(point.x() * scale), std::round(point.y() * scale)) / scale;
  };
  snapped_ = QRectF(onPixel(place) - place, onPixel(place + snapped_.bottomRight()) - place);
}

QSGNode* PaintedItem::updatePaintNode(QSGNode* node, UpdatePaintNodeData* /*data*/) {
  const double scale = window()->effectiveDevicePixelRatio() * std::clamp(detail_, 1.0 / 64, 1.0);
  auto* image = static_cast<QSGImageNode*>(node);
  // The scene graph asks invisible items, too: those of a window's rings and highlights take 0.3
  // MB.
  if (!isVisible() || width() <= 0 || height() <= 0) {
    delete image;
    dirty_ = true;
    return nullptr;
  }
  if (image == nullptr) {
    image = window()->createImageNode();
    image->setOwnsTexture(true);
    dirty_ = true;
  }
  if (dirty_) {
    // The picture starts at a whole device pixel, unless it is stretched.
    const QRectF area = pictureArea();
    const QPointF corner = (mapToScene({0, 0}) + area.topLeft()) * scale;
    const QPointF offset = isStretched()
                               ? QPointF()
                               : corner - QPointF(std::floor(corner.x()), std::floor(corner.y()));
    snap(scale);
    const QImage picture = render(area, offset, scale);
    image->setTexture(window()->createTextureFromImage(picture));
    const QPointF origin = area.topLeft() - offset / scale;
    image->setRect(isStretched() ? area : QRectF(origin, QSizeF(picture.size()) / scale));
    image->setSourceRect(QRectF(QPointF(), picture.size()));
    dirty_ = false;
    unpaintedMove_ = 0;
    ++paintCount_;
  }
  image->setFiltering(isStretched() ? QSGTexture::Linear : QSGTexture::Nearest);
  return image;
}

void PaintedItem::geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry) {
  QQuickItem::geometryChange(newGeometry, oldGeometry);
  if (newGeometry.size() != oldGeometry.size()) repaint();
}

void PaintedItem::itemChange(ItemChange change, const ItemChangeData& data) {
  QQuickItem::itemChange(change, data);
  if (change == ItemDevicePixelRatioHasChanged || change == ItemSceneChange ||
      change == ItemVisibleHasChanged) {
    repaint();
  }
}

}  // namespace orvane
