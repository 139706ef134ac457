import QtQuick
import Orvane

/// What is selected, with what can be done with it. Return asks for the kill, Escape lets go.
Item {
    id: root

    required property var record  ///< a ProcessRecord

    signal cancelled
    signal killRequested

    implicitHeight: 1 + Math.max(texts.height, buttons.height) + 28
    Accessible.role: Accessible.ToolBar
    Accessible.name: qsTr("Selected application", "name of the bar below the list, for assistive technology")

    Shortcut {
        sequences: ["Escape"]
        autoRepeat: false
        onActivated: root.cancelled()
    }

    Shortcut {
        sequences: ["Return", "Enter"]
        autoRepeat: false
        onActivated: root.killRequested()
    }

    Rectangle {
        anchors.fill: parent
        color: Theme.material
    }

    Divider {}

    Column {
        id: texts

        anchors.verticalCenter: buttons.verticalCenter
        x: 14
        width: buttons.x - 16 - 8 - 8 - x
        spacing: 4

        SpokenText {
            objectName: "selectionName"
            width: parent.width
            horizontalAlignment: Text.AlignLeft  // for names written from right to left too
            text: root.record.name
            font: Theme.headline
            color: Theme.label
            elide: Text.ElideRight
            maximumLineCount: 1
        }

        SpokenText {
            objectName: "selectionLocation"
            width: parent.width
            horizontalAlignment: Text.AlignLeft  // for names written from right to left too
            text: ProcessText.location(root.record)
            elide: Text.ElideMiddle
            maximumLineCount: 1
        }
    }

    Row {
        id: buttons

        anchors.right: parent.right
        anchors.rightMargin: 14
        y: 1 + Math.round((root.height - 1 - height) / 2)
        spacing: 8

        ActionButton {
            objectName: "cancelSelection"
            name: qsTr("Cancel", "button: changes nothing")
            onClicked: root.cancelled()
        }

        ActionButton {
            objectName: "killSelection"
            name: qsTr("Kill Process", "button: ends an application at once, after a question")
            symbol: "xmark.circle.fill"
            fill: Theme.red
            textColor: "white"
            onClicked: root.killRequested()
        }
    }
}
