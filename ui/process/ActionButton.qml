import QtQuick
import Orvane

/// A filled button with a text and, before it, a symbol where there is one.
PlainButton {
    id: root

    property string symbol
    property color fill: Theme.withOpacity(Theme.gray, 0.2)
    property color textColor: Theme.secondaryLabel

    // Edges on whole points are sharp.
    implicitWidth: Math.ceil(label.implicitWidth) + 28
    implicitHeight: label.implicitHeight + 16
    focusRadius: 11
    focusInset: -3  // outside, where the ring differs from any fill

    SmoothRectangle {
        anchors.fill: parent
        radius: 8
        color: root.fill
        opacity: root.pressedDown ? 0.7 : 1
    }

    Row {
        id: label

        anchors.centerIn: parent
        spacing: 6

        Symbol {
            anchors.verticalCenter: parent.verticalCenter
            visible: root.symbol !== ""
            name: root.symbol
            color: root.textColor
        }

        Label {
            anchors.verticalCenter: parent.verticalCenter
            text: root.name
            font: Theme.body
            color: root.textColor
        }
    }
}
