import QtQuick
import Orvane

/// The main window's gradient from its top left to its bottom right, behind everything else in it.
Item {
    id: root

    readonly property real diagonal: Math.hypot(width, height)

    clip: true

    // A Rectangle's own gradient takes no memory, and runs down only: it is turned.
    Rectangle {
        anchors.centerIn: parent
        width: root.diagonal
        height: root.diagonal
        rotation: -Math.atan2(root.width, root.height) * 180 / Math.PI
        gradient: Gradient {
            GradientStop {
                position: 0
                color: Theme.windowGradient[0]
            }
            GradientStop {
                position: 1
                color: Theme.windowGradient[1]
            }
        }
    }
}
