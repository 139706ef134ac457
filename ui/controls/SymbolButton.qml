import QtQuick
import Orvane

/// A button that is a symbol. It reaches 4 points beyond it on every side: easier to hit.
PlainButton {
    id: root

    property string toolTip  ///< shown under a resting pointer
    property alias symbol: image.name
    property alias pointSize: image.pointSize
    property alias color: image.color

    implicitWidth: image.width + 8
    implicitHeight: image.height + 8
    description: toolTip

    Symbol {
        id: image

        anchors.centerIn: parent
        color: Theme.blue
        opacity: !root.enabled ? 0.35 : root.pressedDown ? 0.6 : 1
    }

    ToolTipWindow {
        button: root
        text: root.toolTip
    }
}
