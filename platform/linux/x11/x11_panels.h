#pragma once

#include <QtCore/QList>
#include <QtCore/QRect>
#include <optional>

#include "platform/appearance.h"

namespace orvane {

/// Where the panels of an X11 desktop are (windows of the type DOCK), in device pixels, read over
/// Qt's connection; none on other platforms. Main thread only.
[[nodiscard]] QList<QRect> x11PanelFrames();

/// Whether those panels are light or dark, by the pixels they show; none on other platforms, for
/// panels of different looks and for clear ones. Main thread only.
[[nodiscard]] std::optional<ColorScheme> x11PanelScheme();

}  // namespace orvane
