#pragma once

#include <QtQml/qqmlregistration.h>
#include <QColor>

#include "ui/painted/painted_item.h"

namespace orvane {

/// A bar with round ends that is filled up to a share; the fill stays inside the ends.
class ShareBar : public orvane::PaintedItem {
  Q_OBJECT
  QML_ELEMENT

  Q_PROPERTY(double share READ share WRITE setShare NOTIFY shareChanged)  ///< 0 to 1
  Q_PROPERTY(QColor trackColor MEMBER trackColor_ NOTIFY changed)
  Q_PROPERTY(QColor fillColor MEMBER fillColor_ NOTIFY changed)
  Q_PROPERTY(double inset MEMBER inset_ NOTIFY changed)  ///< points of each end that stay empty

 public:
  [[nodiscard]] double share() const { return share_; }

  /// Paints again only for a change that can be seen.
  void setShare(double value) {
    if (assignStep(share_, value, width())) Q_EMIT shareChanged();
  }
  /// Whether moving the fill to `value` can be seen; a smaller change isn't worth an animation.
  Q_INVOKABLE [[nodiscard]] bool isVisibleChange(double value) const {
    return isVisibleMove((value - share_) * width());
  }

 Q_SIGNALS:
  void shareChanged();

 protected:
  void paint(QPainter& painter) const override;

 private:
  static constexpr double cornerRadius = 3;

  double share_ = 0;
  double inset_ = 4;
  QColor trackColor_ = Qt::transparent;
  QColor fillColor_ = Qt::transparent;
};

}  // namespace orvane
