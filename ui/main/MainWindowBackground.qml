import QtQuick
import Orvane

/// The main window's gradient, for everything the window shows to lie on.
SmoothRectangle {
    gradientColors: [Theme.windowGradientStart, Theme.windowGradientEnd]
    gradientEnd: Qt.point(1, 1)
    detail: 1 / 8
}
