import QtQuick
import Orvane

/// The highlight of a control under the pointer: fills its parent, square, without animation.
Rectangle {
    anchors.fill: parent
    color: Theme.withOpacity(Theme.secondaryLabel, hover.hovered ? 0.1 : 0)

    HoverHandler {
        id: hover
    }
}
