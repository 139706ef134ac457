#pragma once

#include <QtQml/qqmlregistration.h>
#include <QColor>

#include "ui/painted/painted_item.h"

namespace orvane {

inline constexpr double barFillInset = 4;  ///< points at each end that stay empty, unless told

/// Points of the filled part of a bar that shows `share` (0 to 1), never negative.
[[nodiscard]] double barFillWidth(double barWidth, double share, double inset = barFillInset);

/// A bar with round ends that is filled up to a share; the fill stays inside the ends.
class ShareBar : public orvane::PaintedItem {
  Q_OBJECT
  QML_ELEMENT

  Q_PROPERTY(double share READ share WRITE setShare NOTIFY changed)  ///< 0 to 1
  Q_PROPERTY(QColor trackColor READ trackColor WRITE setTrackColor NOTIFY changed)
  Q_PROPERTY(QColor fillColor READ fillColor WRITE setFillColor NOTIFY changed)
  Q_PROPERTY(double inset READ inset WRITE setInset NOTIFY changed)  ///< points of each end

 public:
  [[nodiscard]] double share() const { return share_; }
  [[nodiscard]] QColor trackColor() const { return trackColor_; }
  [[nodiscard]] QColor fillColor() const { return fillColor_; }
  [[nodiscard]] double inset() const { return inset_; }

  /// Paints again only for a change that can be seen.
  void setShare(double value) { announce(assignStep(share_, value, width())); }
  /// Whether it shows when the fill goes from where it is to `value`: no use animating less.
  Q_INVOKABLE [[nodiscard]] bool isVisibleWay(double value) const {
    return isVisibleMove((value - share_) * width());
  }
  void setTrackColor(const QColor& value) { announce(assign(trackColor_, value)); }
  void setFillColor(const QColor& value) { announce(assign(fillColor_, value)); }
  void setInset(double value) { announce(assign(inset_, value)); }

 Q_SIGNALS:
  void changed();

 protected:
  void paint(QPainter& painter) const override;

 private:
  static constexpr double cornerRadius = 3;

  void announce(bool isNew) {
    if (isNew) Q_EMIT changed();
  }

  double share_ = 0;
  double inset_ = barFillInset;
  QColor trackColor_ = Qt::transparent;
  QColor fillColor_ = Qt::transparent;
};

}  // namespace orvane
