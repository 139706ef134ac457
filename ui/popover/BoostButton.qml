import QtQuick
import Orvane

/// The popover's boost button.
PlainButton {
    id: root

    required property bool processing
    required property real boostRotation  ///< degrees
    required property real boostScale
    readonly property alias text: label.text

    implicitHeight: Math.max(bolt.height, label.implicitHeight) + 16
    name: text
    enabled: !processing
    focusInset: 2

    HoverEffect {
        inLeftCorner: true
        z: -1
    }

    Symbol {
        id: bolt

        objectName: "bolt"
        x: 12
        anchors.verticalCenter: parent.verticalCenter
        // Steady, it lies on whole pixels; only what turns is filtered.
        smooth: root.boostRotation !== 0 || root.boostScale !== 1
        name: "bolt.fill"
        pointSize: 12
        color: Theme.label
        opacity: root.enabled ? 1 : 0.6
        rotation: root.boostRotation
        scale: root.boostScale
    }

    Text {
        id: label

        anchors.left: bolt.right
        anchors.leftMargin: 8
        anchors.verticalCenter: parent.verticalCenter
        text: root.processing ? qsTr("Boosting...", "while memory is being freed") : qsTr("Boost Memory", "button: frees memory for a moment")
        font: Theme.systemFont(13)
        color: Theme.label
        opacity: root.enabled ? 1 : 0.6
    }
}
