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
  Q_PROPERTY(double from READ from WRITE setFrom NOTIFY changed)
  Q_PROPERTY(double to READ to WRITE setTo NOTIFY changed)
  Q_PROPERTY(double lineWidth READ lineWidth WRITE setLineWidth NOTIFY changed)
  Q_PROPERTY(bool roundCaps READ roundCaps WRITE setRoundCaps NOTIFY changed)
  /// One to three colours.
  Q_PROPERTY(QList<QColor> colors READ colors WRITE setColors NOTIFY changed)
  Q_PROPERTY(QPointF gradientStart READ gradientStart WRITE setGradientStart NOTIFY changed)
  Q_PROPERTY(QPointF gradientEnd READ gradientEnd WRITE setGradientEnd NOTIFY changed)
  /// Degrees by which the finished drawing, gradient included, is turned clockwise.
  Q_PROPERTY(double startRotation READ startRotation WRITE setStartRotation NOTIFY changed)

 public:
  [[nodiscard]] double from() const { return from_; }
  [[nodiscard]] double to() const { return to_; }
  [[nodiscard]] double lineWidth() const { return lineWidth_; }
  [[nodiscard]] bool roundCaps() const { return roundCaps_; }
  [[nodiscard]] QList<QColor> colors() const { return colors_; }
  [[nodiscard]] QPointF gradientStart() const { return gradientStart_; }
  [[nodiscard]] QPointF gradientEnd() const { return gradientEnd_; }
  [[nodiscard]] double startRotation() const { return startRotation_; }

  void setFrom(double value) { announce(assign(from_, value)); }
  /// Paints again only for a change that can be seen.
  void setTo(double value) { announce(assignStep(to_, value, circumference())); }
  /// Whether it shows when the end goes from where it is to `value`: no use animating less.
  Q_INVOKABLE [[nodiscard]] bool isVisibleWay(double value) const {
    return isVisibleMove((value - to_) * circumference());
  }
  void setLineWidth(double value) { announce(assign(lineWidth_, value)); }
  void setRoundCaps(bool value) { announce(assign(roundCaps_, value)); }
  void setColors(const QList<QColor>& value) { announce(assign(colors_, value)); }
  void setGradientStart(QPointF value) { announce(assign(gradientStart_, value)); }
  void setGradientEnd(QPointF value) { announce(assign(gradientEnd_, value)); }
  void setStartRotation(double value) { announce(assign(startRotation_, value)); }

 Q_SIGNALS:
  void changed();

 protected:
  void paint(QPainter& painter) const override;
  // One more point than the line needs leaves room for its soft edge, also when turned.
  [[nodiscard]] double overhang() const override { return lineWidth_ / 2 + 1; }
  [[nodiscard]] QRectF paintedArea() const override;

 private:
  /// The part of the circle before it is turned; empty when nothing is drawn.
  [[nodiscard]] QPainterPath path() const;
  /// How the drawing of one copy is turned about the centre.
  [[nodiscard]] QTransform turn() const;
  [[nodiscard]] double circumference() const { return std::numbers::pi * width(); }
  void announce(bool isNew) {
    if (isNew) Q_EMIT changed();
  }

  double from_ = 0;
  double to_ = 1;
  double lineWidth_ = 1;
  bool roundCaps_ = false;
  QList<QColor> colors_;
  QPointF gradientStart_{0, 0};
  QPointF gradientEnd_{1, 1};
  double startRotation_ = 0;
};

}  // namespace orvane
