#pragma once

#include <QColor>

#include "platform/appearance.h"

namespace orvane {

/// Every colour of the views: COLOR(name, light, dark). A value may name a colour above it.
#define ORVANE_COLORS(COLOR)                                                                       \
  COLOR(red, QColor(255, 59, 48), QColor(255, 69, 58))                                             \
  COLOR(orange, QColor(255, 149, 0), QColor(255, 159, 10))                                         \
  COLOR(yellow, QColor(255, 204, 0), QColor(255, 214, 10))                                         \
  COLOR(green, QColor(40, 205, 65), QColor(50, 215, 75))                                           \
  COLOR(blue, QColor(0, 122, 255), QColor(10, 132, 255))                                           \
  COLOR(purple, QColor(175, 82, 222), QColor(191, 90, 242))                                        \
  COLOR(pink, QColor(255, 45, 85), QColor(255, 55, 95))                                            \
  COLOR(gray, QColor(142, 142, 147), QColor(152, 152, 157))                                        \
  COLOR(label, black(0.85), white(0.85))          /* primary text */                               \
  COLOR(secondaryLabel, black(0.55), white(0.55)) /* secondary text and symbols */                 \
  COLOR(windowBackground, QColor(0xEC, 0xEC, 0xEC), QColor(0x32, 0x32, 0x32)) /* of the popover */ \
  COLOR(windowOutline, black(0.16), white(0.16)) /* around windows without a frame */              \
  COLOR(windowShadow, black(0.28), black(0.5))   /* around those with a shadow */                  \
  COLOR(windowGradientStart, srgb(0.95, 0.96, 0.98), srgb(0.10, 0.10, 0.12)) /* top left */        \
  COLOR(windowGradientEnd, srgb(0.98, 0.98, 1.00), srgb(0.15, 0.15, 0.18))   /* bottom right */    \
  COLOR(menuBackground, QColor(0xF6, 0xF6, 0xF6), QColor(0x2B, 0x2B, 0x2D))                        \
  COLOR(pickerTrack, black(0.06), white(0.07))                                                     \
  COLOR(pickerSelection, QColor(0xFF, 0xFF, 0xFF), QColor(0x5A, 0x5A, 0x60))                       \
  COLOR(pickerShadow, black(0.18), black(0.3))                                                     \
  COLOR(divider, black(0.1), white(0.1))                                                           \
  COLOR(focusRing, withOpacity(blue, 0.9), withOpacity(blue, 0.9))                                 \
  COLOR(rowOutline, withOpacity(blue, 0.5), withOpacity(blue, 0.5)) /* of the selected row */      \
  COLOR(material, withOpacity(QColor(0xE9, 0xEB, 0xF0), 0.6),                                      \
        withOpacity(QColor(0x2F, 0x2F, 0x38), 0.6))                                                \
  COLOR(statCard, white(0.7), white(0.05))                                                         \
  COLOR(shortcut, withOpacity(gray, 0.1), white(0.05))                                             \
  COLOR(counterTrack, withOpacity(gray, 0.15), white(0.1))                                         \
  COLOR(compressedTrack, withOpacity(gray, 0.15), withOpacity(gray, 0.15))                         \
  COLOR(gaugeTrack, withOpacity(gray, 0.15), white(0.1))                                           \
  COLOR(gaugeShadow, black(0.08), black(0.3))                                                      \
  COLOR(detailsBar, srgb(0.98, 0.98, 0.98), srgb(0.15, 0.15, 0.15))                                \
  COLOR(processPopover, windowBackground, srgb(0.15, 0.15, 0.15))                                  \
  COLOR(pathBox, withOpacity(gray, 0.08), white(0.05))                                             \
  COLOR(chartPanel, withOpacity(gray, 0.05), white(0.03))

/// The colours of one appearance.
struct Palette {
  /// With `highContrast`, secondary texts and borders are as strong as texts can be.
  explicit Palette(ColorScheme scheme, bool highContrast = false);

#define ORVANE_COLOR_MEMBER(name, light, dark) QColor name;
  ORVANE_COLORS(ORVANE_COLOR_MEMBER)
#undef ORVANE_COLOR_MEMBER
};

[[nodiscard]] const Palette& palette(ColorScheme scheme);

/// `color` at `opacity` (0 to 1) of itself.
[[nodiscard]] QColor withOpacity(QColor color, double opacity);

}  // namespace orvane
