import QtQuick
import Orvane

/// One figure of an application's details: a small symbol, a caption and the value.
Item {
    id: root

    required property string icon  ///< name of a symbol
    required property color iconColor
    required property string label
    required property string value

    width: parent.width
    implicitHeight: caption.implicitHeight
    Accessible.role: Accessible.StaticText
    Accessible.name: label + ": " + value

    Symbol {
        x: (12 - width) / 2
        anchors.verticalCenter: parent.verticalCenter
        name: root.icon
        pointSize: 8
        color: root.iconColor
    }

    Label {
        id: caption

        x: 20
        anchors.verticalCenter: parent.verticalCenter
        text: root.label
    }

    Label {
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        text: root.value
        font: Theme.systemFont(10, Font.DemiBold)
        color: Theme.label
    }
}
