#pragma once

#include "ui/painted/gradient_text.h"

namespace orvane {

/// A line of text out of focus: the shadow of a text.
class BlurredText : public orvane::GradientText {
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
  [[nodiscard]] double overhang() const override;

 private:
  double blurRadius_ = 8;
};

}  // namespace orvane
