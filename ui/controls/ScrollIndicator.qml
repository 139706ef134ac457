import QtQuick
import Orvane

/// The scroll bar of a ScrollArea: shows while the area scrolls or the pointer is on it, and can be
/// dragged.
Item {
    id: root

    required property Flickable area  ///< read alone; it scrolls itself when `dragged` says so
    readonly property real travel: height - thumb.height
    readonly property bool wanted: area.contentHeight > area.height + 0.5

    /// The pointer moved the bar to this share of the way, 0 to 1.
    signal dragged(real share)

    function show() {
        if (wanted)
            recent.restart();
    }

    anchors.right: parent.right
    width: 12
    height: parent.height
    visible: wanted
    Accessible.ignored: true

    Rectangle {
        id: thumb

        readonly property real place: root.area.visibleArea.yPosition / Math.max(0.001, 1 - root.area.visibleArea.heightRatio)

        x: root.width - width - 2
        y: 2 + place * (root.travel - 4)
        width: pointer.containsMouse || pointer.pressed ? 7 : 5
        height: Math.max(24, root.height * root.area.visibleArea.heightRatio)
        radius: width / 2
        color: Theme.withOpacity(Theme.label, pointer.pressed ? 0.6 : 0.35)
        opacity: recent.running || pointer.containsMouse || pointer.pressed ? 1 : 0

        Behavior on opacity {
            NumberAnimation {
                duration: 150
            }
        }
    }

    Timer {
        id: recent

        interval: 800
    }

    MouseArea {
        id: pointer

        property real grip: 0

        anchors.fill: parent
        hoverEnabled: true
        onPressed: mouse => grip = mouse.y >= thumb.y && mouse.y <= thumb.y + thumb.height ? mouse.y - thumb.y : thumb.height / 2
        onPositionChanged: mouse => {
            if (pressed)
                root.dragged(Math.max(0, Math.min(1, (mouse.y - grip - 2) / Math.max(1, root.travel - 4))));
        }
    }
}
