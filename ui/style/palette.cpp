#include "ui/style/palette.h"

namespace orvane {

namespace {

QColor white(double opacity) {
  return QColor::fromRgbF(1, 1, 1, static_cast<float>(opacity));
}

QColor black(double opacity) {
  return QColor::fromRgbF(0, 0, 0, static_cast<float>(opacity));
}

QColor srgb(double red, double green, double blue) {
  return QColor::fromRgbF(static_cast<float>(red), static_cast<float>(green),
                          static_cast<float>(blue));
}

Palette lightPalette() {
  return {.red = {255, 59, 48},
          .orange = {255, 149, 0},
          .yellow = {255, 204, 0},
          .green = {40, 205, 65},
          .blue = {0, 122, 255},
          .purple = {175, 82, 222},
          .pink = {255, 45, 85},
          .gray = {142, 142, 147},
          .label = black(0.85),
          .secondaryLabel = black(0.5),
          .windowBackground = {0xEC, 0xEC, 0xEC},
          .divider = black(0.1),
          .menuBackground = {0xF6, 0xF6, 0xF6},
          .windowOutline = black(0.16)};
}

Palette darkPalette() {
  return {.red = {255, 69, 58},
          .orange = {255, 159, 10},
          .yellow = {255, 214, 10},
          .green = {50, 215, 75},
          .blue = {10, 132, 255},
          .purple = {191, 90, 242},
          .pink = {255, 55, 95},
          .gray = {152, 152, 157},
          .label = white(0.85),
          .secondaryLabel = white(0.55),
          .windowBackground = {0x32, 0x32, 0x32},
          .divider = white(0.1),
          .menuBackground = {0x2B, 0x2B, 0x2D},
          .windowOutline = white(0.16)};
}

Surfaces lightSurfaces() {
  const QColor gray = palette(ColorScheme::light).gray;
  const QColor window = palette(ColorScheme::light).windowBackground;
  return {.windowGradientStart = srgb(0.95, 0.96, 0.98),
          .windowGradientEnd = srgb(0.98, 0.98, 1.00),
          .statCard = white(0.7),
          .shortcut = withOpacity(gray, 0.1),
          .counterTrack = withOpacity(gray, 0.15),
          .compressedTrack = withOpacity(gray, 0.15),
          .gaugeTrack = withOpacity(gray, 0.15),
          .gaugeShadow = black(0.08),
          .detailsBar = srgb(0.98, 0.98, 0.98),
          .processPopover = window,
          .pathBox = withOpacity(gray, 0.08),
          .chartPanel = withOpacity(gray, 0.05),
          .material = withOpacity(window, 0.6)};
}

Surfaces darkSurfaces() {
  return {.windowGradientStart = srgb(0.10, 0.10, 0.12),
          .windowGradientEnd = srgb(0.15, 0.15, 0.18),
          .statCard = white(0.05),
          .shortcut = white(0.05),
          .counterTrack = white(0.1),
          .compressedTrack = withOpacity(palette(ColorScheme::dark).gray, 0.15),
          .gaugeTrack = white(0.1),
          .gaugeShadow = black(0.3),
          .detailsBar = srgb(0.15, 0.15, 0.15),
          .processPopover = srgb(0.15, 0.15, 0.15),
          .pathBox = white(0.05),
          .chartPanel = white(0.03),
          .material = withOpacity(palette(ColorScheme::dark).windowBackground, 0.6)};
}

}  // namespace

const Palette& palette(ColorScheme scheme) {
  static const Palette light = lightPalette();
  static const Palette dark = darkPalette();
  return scheme == ColorScheme::dark ? dark : light;
}

const Surfaces& surfaces(ColorScheme scheme) {
  static const Surfaces light = lightSurfaces();
  static const Surfaces dark = darkSurfaces();
  return scheme == ColorScheme::dark ? dark : light;
}

QColor withOpacity(QColor color, double opacity) {
  color.setAlphaF(color.alphaF() * static_cast<float>(opacity));
  return color;
}

}  // namespace orvane
