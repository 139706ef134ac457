import QtQuick
import Orvane

/// An update check: first its progress, then its one result.
DialogWindow {
    id: root

    required property WindowController windows

    title: qsTr("Software Update", "title of a window")
    description: windows.update.headline + "\n" + windows.update.message
    contentWidth: 380
    contentHeight: Math.max(150, body.height + buttons.height + 56)
    onAccepted: if (windows.acceptUpdate())
        close()

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

        SpokenText {
            width: parent.width
            text: root.windows.update.headline
            font: Theme.headline
            color: Theme.label
            wrapMode: Text.Wrap
            Accessible.role: Accessible.Heading
        }

        ProgressStripe {
            width: parent.width
            visible: root.windows.update.checking
            running: visible
        }

        SpokenText {
            width: parent.width
            visible: text !== ""
            text: root.windows.update.message
            font: Theme.subheadline
            color: Theme.label
            wrapMode: Text.Wrap
        }

        ReleaseNotes {
            width: parent.width
            height: 120
            visible: root.windows.update.notes !== ""
            text: root.windows.update.notes
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
            name: root.windows.update.secondaryButton
            textColor: Theme.label
            onClicked: root.close()
        }

        ActionButton {
            visible: name !== ""
            name: root.windows.update.primaryButton
            fill: Theme.blue
            textColor: "white"
            onClicked: root.accepted()
        }
    }
}
