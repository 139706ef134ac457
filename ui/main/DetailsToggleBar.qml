import QtQuick
import Orvane

/// Opens and closes the overview's details.
PlainButton {
    id: root

    required property bool open

    expanded: open
    name: open ? qsTr("Hide Details", "button: closes what it opened") : qsTr("Show Details", "button: opens more of the view")
    implicitHeight: label.height + 24
    focusRadius: 0

    Rectangle {
        anchors.fill: parent
        color: Theme.detailsBar
    }

    Rectangle {
        anchors.fill: parent
        visible: root.containsMouse
        color: Theme.withOpacity(Theme.gray, root.pressedDown ? 0.16 : 0.08)
    }

    Row {
        anchors.centerIn: parent
        spacing: 4

        Label {
            id: label

            anchors.verticalCenter: parent.verticalCenter
            text: root.name
        }

        Symbol {
            anchors.verticalCenter: parent.verticalCenter
            name: root.open ? "chevron.up" : "chevron.down"
            pointSize: 10
            color: Theme.secondaryLabel
        }
    }
}
