#pragma once

#include <QColor>

#include "platform/appearance.h"

namespace orvane {

/// The named colours of one appearance.
struct Palette {
  QColor red, orange, yellow, green, blue, purple, pink, gray;
  QColor label;             ///< primary text
  QColor secondaryLabel;    ///< secondary text and symbols
  QColor windowBackground;  ///< also of the popover
  QColor divider;
  QColor menuBackground;
  QColor windowOutline;  ///< hairline around windows without a frame
};

/// The backgrounds that views share, of one appearance.
struct Surfaces {
  QColor windowGradientStart, windowGradientEnd;  ///< top left to bottom right
  QColor statCard;
  QColor shortcut;
  QColor counterTrack;
  QColor compressedTrack;
  QColor gaugeTrack;
  QColor gaugeShadow;
  QColor detailsBar;
  QColor processPopover;  ///< background of an application's details
  QColor pathBox;
  QColor chartPanel;
  QColor material;  ///< translucent fill over whatever lies behind
};

[[nodiscard]] const Palette& palette(ColorScheme scheme);
[[nodiscard]] const Surfaces& surfaces(ColorScheme scheme);

/// `color` at `opacity` (0 to 1) of itself.
[[nodiscard]] QColor withOpacity(QColor color, double opacity);

}  // namespace orvane
