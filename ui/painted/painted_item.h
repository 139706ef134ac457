#pragma once

#include <QBrush>
#include <QQuickItem>
#include <QSGTexture>
#include <memory>

class QPainter;

namespace orvane {

/// An item that paints itself with QPainter, once for each change of its inputs, and is shown as an
/// image from then on: turning or moving it costs no painting.
///
/// Paints in device pixels, aligned to them, so that edges are crisp at any scale. Set `smooth` on
/// an item that turns or grows.
///
/// Inputs are properties with MEMBER and NOTIFY changed, which only QML sets. Subclasses write this
/// class with its namespace, as qmltyperegistrar needs it.
class PaintedItem : public QQuickItem {
  Q_OBJECT
  QML_ANONYMOUS

  /// Pixels of the picture for each device pixel, 1/64 to 1. What is soft anyway, a shadow or a
  /// wide gradient, looks the same with fewer and takes a fraction of the memory.
  Q_PROPERTY(double detail MEMBER detail_ NOTIFY changed)
  /// Points by which the drawing is out of focus: for a glow or a shadow; see paintBlurred. 0 at
  /// first: sharp.
  Q_PROPERTY(double blurRadius MEMBER blurRadius_ NOTIFY changed)

 public:
  explicit PaintedItem(QQuickItem* parent = nullptr);

  /// Paints the sharp item into another one's picture, its origin at (0, 0), in points.
  void draw(QPainter& painter) const { paint(painter); }

  /// How often the item has painted itself.
  [[nodiscard]] int paintCount() const { return paintCount_; }

 Q_SIGNALS:
  /// An input that the picture depends on has another value.
  void changed();

 protected:
  /// Paints the item, its origin at (0, 0), in points.
  virtual void paint(QPainter& painter) const = 0;

  /// What colours the drawing when it is blurred: of its own colours only the opacity counts then.
  [[nodiscard]] virtual QBrush blurredFill() const { return Qt::black; }

  /// Paints over the drawing what its blur must not soften.
  virtual void paintSharp(QPainter& /*painter*/) const {}

  /// Points by which the drawing may exceed the item on every side.
  [[nodiscard]] virtual double overhang() const { return 0; }

  /// What the drawing keeps within; the less it is, the less is blended in every frame.
  [[nodiscard]] virtual QRectF paintedArea() const;

  /// The item's rectangle with its edges moved to the nearest device pixels, so that straight edges
  /// are crisp at fractional scales; a stretched picture has it as it is. For `paint` only.
  [[nodiscard]] QRectF snappedRect() const { return snapped_; }

  /// Whether something that moves by `points` looks different on the screen.
  [[nodiscard]] bool isVisibleMove(double points) const;

  /// Called at each `changed`, before other receivers.
  virtual void inputChanged() { repaint(); }

  /// Stores `value` in an input that is animated, and repaints once the picture is visibly off it.
  /// A step of 1 moves the drawing by `length` points. True when the value is new. The property's
  /// signal must not be `changed`, which repaints.
  bool assignStep(double& member, double value, double length);

  QSGNode* updatePaintNode(QSGNode* node, UpdatePaintNodeData* data) override;
  void geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry) override;
  void itemChange(ItemChange change, const ItemChangeData& data) override;

 private:
  /// Paints again before the next frame.
  void repaint();
  /// Where the picture lies: what is painted, and how far its blur reaches.
  [[nodiscard]] QRectF pictureArea() const;
  [[nodiscard]] QImage render(const QRectF& area, QPointF offset, double scale) const;

  void snap(double scale);

  /// The picture is drawn larger or turned, so that its pixels aren't the screen's.
  [[nodiscard]] bool isStretched() const { return smooth() || detail_ < 1; }

  QRectF snapped_;
  double detail_ = 1;
  double blurRadius_ = 0;
  bool dirty_ = true;
  double unpaintedMove_ = 0;  ///< points, since the last painting
  int paintCount_ = 0;
};

}  // namespace orvane
