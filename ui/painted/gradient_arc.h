#pragma once

#include <QtQml/qqmlregistration.h>
#include <QColor>
#include <QPainterPath>
#include <QTransform>
#include <numbers>

#include "ui/painted/painted_item.h"

namespace orvane {

/// A part of the circle inscribed in the item, stroked on its outline (half of the line lies
/// outside the item) with a linear gradient between two unit points of the item.
class GradientArc : public orvane::PaintedItem {
  Q_OBJECT
  QML_ELEMENT

  /// The part of the circle's length that is drawn, 0 to 1, clockwise from three o'clock.
  Q_PROPERTY(double to READ to WRITE setTo NOTIFY toChanged)
  Q_PROPERTY(double lineWidth MEMBER lineWidth_ NOTIFY changed)
  Q_PROPERTY(bool roundCaps MEMBER roundCaps_ NOTIFY changed)
  /// One to three colours.
  Q_PROPERTY(QList<QColor> colors MEMBER colors_ NOTIFY changed)
  Q_PROPERTY(QPointF gradientStart MEMBER gradientStart_ NOTIFY changed)
  Q_PROPERTY(QPointF gradientEnd MEMBER gradientEnd_ NOTIFY changed)
  /// Degrees by which the finished drawing, gradient included, is turned clockwise.
  Q_PROPERTY(double startRotation MEMBER startRotation_ NOTIFY changed)

 public:
  [[nodiscard]] double to() const { return to_; }

  /// Paints again only for a change that can be seen.
  void setTo(double value) {
    if (assignStep(to_, value, circumference())) Q_EMIT toChanged();
  }
  /// Whether moving the end to `value` can be seen; a smaller change isn't worth an animation.
  Q_INVOKABLE [[nodiscard]] bool isVisibleChange(double value) const {
    return isVisibleMove((value - to_) * circumference());
  }

 Q_SIGNALS:
  void toChanged();

 protected:
  void paint(QPainter& painter) const override;
  // One point beyond the line is room for its soft edge.
  [[nodiscard]] double overhang() const override { return lineWidth_ / 2 + 1; }
  [[nodiscard]] QRectF paintedArea() const override;
  /// The gradient, turned with the drawing.
  [[nodiscard]] QBrush blurredFill() const override;

 private:
  /// The part of the circle before it is turned; empty when nothing is drawn.
  [[nodiscard]] QPainterPath path() const;
  /// Turns the drawing about the centre by `startRotation`.
  [[nodiscard]] QTransform turn() const;
  [[nodiscard]] double circumference() const { return std::numbers::pi * width(); }

  double to_ = 1;
  double lineWidth_ = 1;
  bool roundCaps_ = false;
  QList<QColor> colors_;
  QPointF gradientStart_{0, 0};
  QPointF gradientEnd_{1, 1};
  double startRotation_ = 0;
};

}  // namespace orvane
