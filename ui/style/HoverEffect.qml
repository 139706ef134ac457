import QtQuick
import Orvane

/// The highlight of a control under the pointer: fills its parent, without animation. Square, but
/// for the bottom corners of the window that the control lies in.
Item {
    id: root

    property bool inLeftCorner: false
    property bool inRightCorner: false
    readonly property real radius: inLeftCorner || inRightCorner ? Theme.windowRadius : 0
    readonly property alias color: fill.color

    objectName: "hoverEffect"
    anchors.fill: parent
    clip: true

    SmoothRectangle {
        id: fill

        // The corners that stay square lie outside.
        anchors.fill: parent
        anchors.topMargin: -root.radius
        anchors.leftMargin: root.inLeftCorner ? 0 : -root.radius
        anchors.rightMargin: root.inRightCorner ? 0 : -root.radius
        visible: hover.hovered
        radius: root.radius
        color: Theme.withOpacity(Theme.secondaryLabel, hover.hovered ? 0.1 : 0)
    }

    // The handler belongs to the control: a MouseArea above this item takes its hover events.
    HoverHandler {
        id: hover

        parent: root.parent
        enabled: root.visible
    }
}
