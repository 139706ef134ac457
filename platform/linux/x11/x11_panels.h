#pragma once

#include <QtCore/QList>
#include <QtCore/QRect>

namespace orvane {

/// Where the panels of an X11 desktop are (windows of the type DOCK), in device pixels, read over
/// Qt's connection; none on other platforms. Main thread only.
[[nodiscard]] QList<QRect> x11PanelFrames();

}  // namespace orvane
