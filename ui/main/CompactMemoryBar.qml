import QtQuick
import Orvane

/// One counter: its name, its size and a bar of its share of the total. What is part of the total
/// has its share as a figure too.
Item {
    id: root

    required property string label
    required property real bytes
    required property real total
    required property color color
    required property bool isPart
    readonly property real share: Format.fraction(bytes, total)
    readonly property string sizeText: Format.bytesInGB(bytes, 2)
    readonly property string shareText: isPart ? "(" + Format.percent(share * 100, 1) + ")" : ""

    implicitHeight: bar.y + bar.height
    Accessible.role: Accessible.StaticText
    Accessible.name: (label + " " + sizeText + " " + shareText).trim()

    OnScreen {
        id: onScreen

        item: root
    }

    Rectangle {
        x: 8
        anchors.verticalCenter: title.verticalCenter
        width: 6
        height: 6
        radius: 3
        color: root.color
    }

    Label {
        id: title

        x: 20
        text: root.label
        font: Theme.systemFont(10, Font.Medium)
        color: Theme.label
    }

    Row {
        anchors.right: parent.right
        anchors.rightMargin: 8
        anchors.verticalCenter: title.verticalCenter
        spacing: 8

        Label {
            text: root.sizeText
        }

        Label {
            visible: root.isPart
            text: root.shareText
        }
    }

    ShareBar {
        id: bar

        objectName: "bar"
        x: 8
        y: title.height + 6
        width: root.width - 16
        height: 6
        share: root.share
        trackColor: root.isPart ? Theme.counterTrack : Theme.compressedTrack
        fillColor: root.color

        Behavior on share {
            enabled: root.isPart && onScreen.holds && bar.isVisibleChange(targetValue)

            Spring {
                response: 0.5
                dampingFraction: 0.825
            }
        }
    }
}
