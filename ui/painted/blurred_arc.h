#pragma once

#include "ui/painted/gradient_arc.h"

namespace orvane {

/// An arc out of focus: a glow, or the shadow of an arc.
class BlurredArc : public orvane::GradientArc {
  Q_OBJECT
  QML_ELEMENT

  /// Points; see paintBlurred.
  Q_PROPERTY(double blurRadius READ blurRadius WRITE setBlurRadius NOTIFY blurRadiusChanged)

 public:
  [[nodiscard]] double blurRadius() const { return blurRadius_; }
  void setBlurRadius(double value) {
    if (assign(blurRadius_, value)) Q_EMIT blurRadiusChanged();
  }

 Q_SIGNALS:
  void blurRadiusChanged();

 protected:
  void paint(QPainter& painter) const override;
  [[nodiscard]] QRectF paintedArea() const override;

 private:
  double blurRadius_ = 8;
};

}  // namespace orvane
