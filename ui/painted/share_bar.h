#pragma once

#include <QtQml/qqmlregistration.h>
#include <QColor>

#include "ui/painted/painted_item.h"

namespace orvane {

/// Points of the filled part of a bar that shows `share` (0 to 1), never negative.
[[nodiscard]] double barFillWidth(double barWidth, double share);

/// A bar with round ends that is filled up to a share, the fill inset from the leading edge.
class ShareBar : public orvane::PaintedItem {
  Q_OBJECT
  QML_ELEMENT

  Q_PROPERTY(double share READ share WRITE setShare NOTIFY changed)  ///< 0 to 1
  Q_PROPERTY(QColor trackColor READ trackColor WRITE setTrackColor NOTIFY changed)
  Q_PROPERTY(QColor fillColor READ fillColor WRITE setFillColor NOTIFY changed)

 public:
  [[nodiscard]] double share() const { return share_; }
  [[nodiscard]] QColor trackColor() const { return trackColor_; }
  [[nodiscard]] QColor fillColor() const { return fillColor_; }

  /// Paints again only for a change that can be seen.
  void setShare(double value);
  void setTrackColor(const QColor& value) { announce(assign(trackColor_, value)); }
  void setFillColor(const QColor& value) { announce(assign(fillColor_, value)); }

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
  double paintedShare_ = 0;
  QColor trackColor_ = Qt::transparent;
  QColor fillColor_ = Qt::transparent;
};

}  // namespace orvane
