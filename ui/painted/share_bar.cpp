#include "ui/painted/share_bar.h"

#include <QPainter>
#include <algorithm>

#include "ui/painted/smooth_path.h"

namespace orvane {

namespace {

constexpr double fillInset = 4;

}  // namespace

double barFillWidth(double barWidth, double share) {
  return std::max(0.0, (barWidth - 2 * fillInset) * share);
}

void ShareBar::setShare(double value) {
  if (share_ == value) return;
  share_ = value;
  if (isVisibleMove((value - paintedShare_) * width())) {
    paintedShare_ = value;
    repaint();
  }
  Q_EMIT changed();
}

void ShareBar::paint(QPainter& painter) const {
  const QRectF track(0, 0, width(), height());
  painter.fillPath(smoothRectanglePath(track, cornerRadius), trackColor_);
  const double fill = barFillWidth(width(), share_);
  if (fill <= 0) return;
  painter.fillPath(smoothRectanglePath({fillInset, 0, fill, height()}, cornerRadius), fillColor_);
}

}  // namespace orvane
