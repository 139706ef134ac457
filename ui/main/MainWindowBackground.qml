import QtQuick
import Orvane

/// The main window's gradient, behind everything else in it.
SmoothRectangle {
    gradientColors: [Theme.windowGradientStart, Theme.windowGradientEnd]
    gradientEnd: Qt.point(1, 1)
    detail: 1 / 8
}
