import QtQuick
import Orvane

/// One figure with its title, on a card.
SmoothRectangle {
    id: root

    required property string title
    required property string value
    property color valueColor: Theme.label

    implicitHeight: column.height + 24
    radius: 10
    color: Theme.statCard
    Accessible.role: Accessible.StaticText
    Accessible.name: title + " " + value

    Column {
        id: column

        y: 12
        width: root.width
        spacing: 6

        Label {
            anchors.horizontalCenter: parent.horizontalCenter
            text: root.title
        }

        Label {
            anchors.horizontalCenter: parent.horizontalCenter
            text: root.value
            font: Theme.systemFont(15, Font.Bold)
            color: root.valueColor
        }
    }
}
