#include "ui/painted/gradient_background.h"

#include <QPainter>
#include <QQuickWindow>
#include <QSGRenderNode>
#include <QSGRendererInterface>

#include "ui/painted/unit_gradient.h"

namespace orvane {

namespace {

class GradientNode : public QSGRenderNode {
 public:
  explicit GradientNode(QQuickWindow* window) : window_(window) {}

  void setGradient(const QRectF& rect, const QBrush& brush) {
    rect_ = rect;
    brush_ = brush;
    markDirty(DirtyMaterial);
  }

  void render(const RenderState* state) override {
    auto* painter = static_cast<QPainter*>(
        window_->rendererInterface()->getResource(window_, QSGRendererInterface::PainterResource));
    if (painter == nullptr) return;
    const QRegion* changed = state->clipRegion();
    if (changed != nullptr && !changed->isEmpty()) painter->setClipRegion(*changed);
    painter->setTransform(matrix()->toTransform());
    painter->setRenderHint(QPainter::Antialiasing, false);  // no seam shows between strips
    fillInStrips(*painter, rect_, brush_);
  }

  [[nodiscard]] RenderingFlags flags() const override {
    return BoundedRectRendering | OpaqueRendering;
  }
  [[nodiscard]] QRectF rect() const override { return rect_; }

 private:
  QQuickWindow* window_;
  QRectF rect_;
  QBrush brush_;
};

}  // namespace

GradientBackground::GradientBackground(QQuickItem* parent) : QQuickItem(parent) {
  setFlag(ItemHasContents);
  connect(this, &GradientBackground::changed, this, &QQuickItem::update);
}

QSGNode* GradientBackground::updatePaintNode(QSGNode* node, UpdatePaintNodeData* /*data*/) {
  auto* ground = static_cast<GradientNode*>(node);
  if (ground == nullptr) ground = new GradientNode(window());
  ground->setGradient(boundingRect(), unitGradient(colors_, boundingRect(), {0, 0}, {1, 1}));
  return ground;
}

}  // namespace orvane
