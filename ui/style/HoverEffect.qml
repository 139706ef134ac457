import QtQuick
import Orvane

/// The highlight of a control under the pointer: fills its parent, square, without animation.
Rectangle {
    id: root

    objectName: "hoverEffect"
    anchors.fill: parent
    color: Theme.withOpacity(Theme.secondaryLabel, hover.hovered ? 0.1 : 0)

    // The control's own: below a pointer area that hovers too, this rectangle would never hear of
    // the pointer.
    HoverHandler {
        id: hover

        parent: root.parent
        enabled: root.visible
    }
}
