#pragma once

#include <QtCore/QRectF>
#include <QtGui/QPainterPath>

namespace orvane {

/// The skeleton of a digit (0 to 9) that fills `box`, to be stroked with a round pen. Digits drawn
/// this way stay sharp at the few pixels of a panel, where a font's would blur: with a box on whole
/// or half pixels every stem lies on the pixel grid.
[[nodiscard]] QPainterPath digitShape(int digit, const QRectF& box);

}  // namespace orvane
