import QtQuick
import Orvane

/// The main window's gradient, for everything the window shows to lie on.
SmoothRectangle {
    gradientColors: [Theme.windowGradientStart, Theme.windowGradientEnd]
    gradientStart: Qt.point(0, 0)
    gradientEnd: Qt.point(1, 1)
    detail: 1 / 8
}
