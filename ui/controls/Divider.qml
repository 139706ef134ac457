import QtQuick
import Orvane

/// A hairline across its parent: as many whole device pixels as fit into its point.
Item {
    width: parent.width
    implicitHeight: 1

    // A Rectangle would cover whole points.
    SmoothRectangle {
        width: parent.width
        height: Math.max(1, Math.floor(Screen.devicePixelRatio)) / Screen.devicePixelRatio
        color: Theme.divider
    }
}
