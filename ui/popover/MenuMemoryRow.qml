import QtQuick
import Orvane

/// One memory category: its label, its share of the total as a bar, its amount.
Item {
    id: root

    required property string label
    required property real bytes
    required property real total
    required property color color

    readonly property alias valueText: value.text
    readonly property alias barWidth: bar.width
    readonly property alias share: bar.share

    implicitHeight: Math.max(name.implicitHeight, value.implicitHeight)
    Accessible.role: Accessible.StaticText
    Accessible.name: label + ": " + valueText

    Label {
        id: name

        width: 7 * font.pixelSize  // 70, more where texts are larger
        anchors.verticalCenter: parent.verticalCenter
        text: root.label
    }

    ShareBar {
        id: bar

        anchors.left: name.right
        anchors.leftMargin: 8
        anchors.right: value.left
        anchors.rightMargin: 8
        anchors.verticalCenter: parent.verticalCenter
        height: 6
        inset: 0
        share: Format.fraction(root.bytes, root.total)
        trackColor: Theme.withOpacity(Theme.gray, 0.2)
        fillColor: root.color
    }

    Label {
        id: value

        width: 6 * font.pixelSize
        anchors.right: parent.right
        anchors.baseline: name.baseline
        horizontalAlignment: Text.AlignRight
        text: Format.bytesInGB(root.bytes, 1)
        font: Theme.monospacedFont(10)
    }
}
