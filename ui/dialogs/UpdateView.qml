import QtQuick
import Orvane

/// An update check: first its progress, then its one result.
FocusScope {
    id: root

    required property UpdateModel update

    width: 380
    height: Math.max(150, body.height + buttons.height + 56)
    focus: true
    Accessible.role: Accessible.Dialog
    Accessible.name: qsTr("Software Update")
    Accessible.description: update.headline + "\n" + update.message
    Keys.onEscapePressed: root.update.pressSecondary()
    Keys.onReturnPressed: root.update.pressPrimary()
    Keys.onEnterPressed: root.update.pressPrimary()

    Shortcut {
        sequence: "Ctrl+W"
        onActivated: root.update.pressSecondary()
    }

    Rectangle {
        anchors.fill: parent
        color: Theme.windowBackground
    }

    Image {
        id: icon

        x: 20
        y: 20
        width: 56
        height: 56
        sourceSize.width: 56
        sourceSize.height: 56
        source: "qrc:/orvane/icons/orvane.svg"
        Accessible.ignored: true
    }

    Column {
        id: body

        anchors.left: icon.right
        anchors.leftMargin: 16
        anchors.right: parent.right
        anchors.rightMargin: 20
        y: 20
        spacing: 8

        Text {
            width: parent.width
            text: root.update.headline
            font: Theme.headline
            color: Theme.label
            wrapMode: Text.Wrap
            Accessible.role: Accessible.Heading
            Accessible.name: text
        }

        ProgressStripe {
            width: parent.width
            visible: root.update.checking
            running: visible
        }

        Text {
            width: parent.width
            visible: text !== ""
            text: root.update.message
            textFormat: Text.PlainText
            font: Theme.subheadline
            color: Theme.label
            wrapMode: Text.Wrap
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }

        ReleaseNotes {
            width: parent.width
            height: 120
            visible: root.update.notes !== ""
            text: root.update.notes
        }
    }

    Row {
        id: buttons

        anchors.right: parent.right
        anchors.rightMargin: 20
        anchors.bottom: parent.bottom
        anchors.bottomMargin: 20
        spacing: 8

        ActionButton {
            visible: name !== ""
            name: root.update.secondaryButton
            textColor: Theme.label
            onClicked: root.update.pressSecondary()
        }

        ActionButton {
            visible: name !== ""
            name: root.update.primaryButton
            fill: Theme.blue
            textColor: "white"
            onClicked: root.update.pressPrimary()
        }
    }
}
