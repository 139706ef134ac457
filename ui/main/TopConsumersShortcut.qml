import QtQuick
import Orvane

/// How much memory the largest applications use; leads to their list.
PlainButton {
    id: root

    required property string text

    name: text
    implicitHeight: label.height + 20
    focusRadius: 8

    SmoothRectangle {
        anchors.fill: parent
        radius: 8
        color: Theme.shortcut
    }

    SmoothRectangle {
        anchors.fill: parent
        radius: 8
        visible: root.containsMouse
        color: Theme.withOpacity(Theme.gray, root.pressedDown ? 0.2 : 0.08)
    }

    Item {
        x: 16
        width: root.width - 32
        height: label.height
        anchors.verticalCenter: parent.verticalCenter

        Symbol {
            id: info

            anchors.verticalCenter: parent.verticalCenter
            name: "info.circle.fill"
            pointSize: 10
            color: Theme.blue
        }

        Label {
            id: label

            anchors.left: info.right
            anchors.leftMargin: 6
            text: root.text
        }

        Symbol {
            anchors.right: parent.right
            anchors.verticalCenter: parent.verticalCenter
            name: "chevron.right"
            pointSize: 10
            color: Theme.secondaryLabel
        }
    }
}
