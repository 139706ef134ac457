import QtQuick
import Orvane

/// The overview's large button.
PlainButton {
    id: root

    readonly property real fill: enabled ? 1 : 0.6

    name: qsTr("Boost Memory", "button: frees memory for a moment")
    implicitHeight: label.height + 28
    focusRadius: 15
    focusInset: -3

    RectangleShadow {
        anchors.fill: parent
        radius: 12
        blurRadius: 10
        drop: 5
        color: Theme.withOpacity(Theme.blue, root.enabled ? 0.3 : 0.15)
    }

    SmoothRectangle {
        anchors.fill: parent
        radius: 12
        // The words stay as they are: a busy button can still be read.
        gradientColors: [Theme.withOpacity(Theme.blue, root.fill), Theme.withOpacity(Theme.purple, root.fill)]
    }

    SmoothRectangle {
        anchors.fill: parent
        radius: 12
        visible: root.enabled && (root.pressedDown || root.containsMouse)
        color: root.pressedDown ? Qt.rgba(0, 0, 0, 0.15) : Qt.rgba(1, 1, 1, 0.1)
    }

    Row {
        id: label

        // The bolt leaves four points of its square blank on either side.
        anchors.centerIn: parent
        anchors.horizontalCenterOffset: -2
        spacing: 10 - 4

        Symbol {
            anchors.verticalCenter: parent.verticalCenter
            name: "bolt.fill"
            pointSize: 15
            color: "white"
        }

        Label {
            anchors.verticalCenter: parent.verticalCenter
            text: root.name
            font: Theme.systemFont(15, Font.DemiBold)
            color: "white"
        }
    }
}
