import QtQuick
import Orvane

/// One counter: its name, its size, its share of the total and a bar of that share.
Item {
    id: root

    required property string label
    required property real bytes
    required property real total
    required property color barColor
    property bool showsPercentage: true
    property bool animated: true
    property color trackColor: Theme.counterTrack
    readonly property real share: Format.fraction(bytes, total)
    readonly property string shareText: showsPercentage ? "(" + Format.percent(share * 100, 1) + ")" : ""
    readonly property string sizeText: Format.bytesInGB(bytes, 2)

    implicitHeight: bar.y + bar.height
    Accessible.role: Accessible.StaticText
    Accessible.name: label + " " + sizeText + (showsPercentage ? " " + shareText : "")

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
        color: root.barColor
    }

    Text {
        id: title

        x: 20
        text: root.label
        textFormat: Text.PlainText
        font: Theme.systemFont(10, Font.Medium)
        color: Theme.label
        Accessible.ignored: true
    }

    Row {
        anchors.right: parent.right
        anchors.rightMargin: 8
        anchors.verticalCenter: title.verticalCenter
        spacing: 8

        Text {
            text: root.sizeText
            font: Theme.caption2
            color: Theme.secondaryLabel
            Accessible.ignored: true
        }

        Text {
            visible: root.showsPercentage
            text: root.shareText
            font: Theme.caption2
            color: Theme.secondaryLabel
            Accessible.ignored: true
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
        trackColor: root.trackColor
        fillColor: root.barColor

        Behavior on share {
            enabled: root.animated && onScreen.holds && bar.isVisibleWay(targetValue)

            Spring {
                response: 0.5
                dampingFraction: 0.825
            }
        }
    }
}
