import QtQuick
import Orvane

/// The highlight of a control under the pointer: fills its parent, square, without animation.
Rectangle {
    id: root

    objectName: "hoverEffect"
    anchors.fill: parent
    color: Theme.withOpacity(Theme.secondaryLabel, hover.hovered ? 0.1 : 0)

    // The handler belongs to the control: a MouseArea above this rectangle takes its hover events.
    HoverHandler {
        id: hover

        parent: root.parent
        enabled: root.visible
    }
}
