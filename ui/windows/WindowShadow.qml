import QtQuick
import Orvane

/// The shadow of a frameless window on the desktop, below the window's opaque ground. It takes
/// Theme.shadowMargin around that.
SmoothRectangle {
    visible: Theme.shadowMargin > 0
    color: Theme.windowShadow
    blurRadius: 12
    detail: 1 / 2

    transform: Translate {
        y: 4
    }
}
