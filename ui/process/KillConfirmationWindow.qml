import QtQuick
import Orvane

/// The window of a KillConfirmation.
Window {
    id: root

    required property var owner  ///< the window it belongs to
    required property var record  ///< a ProcessRecord

    signal dismissed
    signal confirmed

    title: qsTr("Kill Process?")
    flags: Qt.Dialog | Qt.FramelessWindowHint
    modality: Qt.WindowModal
    transientParent: owner
    color: "transparent"
    width: 300
    height: content.implicitHeight + 40
    minimumWidth: width
    maximumWidth: width
    minimumHeight: height
    maximumHeight: height

    onClosing: close => {
        close.accepted = false;
        dismissed();
    }
    Component.onCompleted: {
        if (owner) {
            x = owner.x + Math.round((owner.width - width) / 2);
            y = owner.y + Math.round((owner.height - height) / 3);
        }
        visible = true;
        requestActivate();
        cancel.forceActiveFocus(Qt.TabFocusReason);
    }

    Connections {
        target: root.owner

        function onVisibleChanged() {
            if (!root.owner.visible)
                root.dismissed();
        }

        // It can do nothing with the keys that it gets when it is clicked or another window goes.
        function onActiveChanged() {
            if (root.owner.active)
                root.requestActivate();
        }
    }

    SmoothRectangle {
        anchors.fill: parent
        radius: Theme.windowRadius
        color: Theme.menuBackground
        borderColor: Theme.windowOutline
        borderWidth: 1
    }

    FocusScope {
        id: content

        x: 20
        y: 20
        width: root.width - 40
        height: implicitHeight
        implicitHeight: texts.height + 20 + cancel.height
        focus: true
        Accessible.role: Accessible.Dialog
        Accessible.name: root.title
        Accessible.description: message.text
        Keys.onEscapePressed: root.dismissed()
        Keys.onLeftPressed: cancel.forceActiveFocus(Qt.TabFocusReason)
        Keys.onRightPressed: kill.forceActiveFocus(Qt.TabFocusReason)

        Column {
            id: texts

            width: content.width
            spacing: 10

            ApplicationIcon {
                anchors.horizontalCenter: parent.horizontalCenter
                source: root.record.iconSource
                side: 48
                symbolSize: 20
            }

            Text {
                width: parent.width
                horizontalAlignment: Text.AlignHCenter
                text: root.title
                font: Theme.headline
                color: Theme.label
            }

            Text {
                id: message

                objectName: "message"
                width: parent.width
                horizontalAlignment: Text.AlignHCenter
                text: ProcessText.killQuestion(root.record)
                textFormat: Text.PlainText
                wrapMode: Text.Wrap
                maximumLineCount: 12
                elide: Text.ElideRight
                font: Theme.subheadline
                color: Theme.label
            }
        }

        ActionButton {
            id: cancel

            objectName: "cancel"
            anchors.bottom: parent.bottom
            width: (content.width - 8) / 2
            name: qsTr("Cancel")
            textColor: Theme.label
            focus: true
            onClicked: root.dismissed()
        }

        ActionButton {
            id: kill

            objectName: "kill"
            anchors.bottom: parent.bottom
            anchors.right: parent.right
            width: cancel.width
            name: qsTr("Kill")
            fill: Theme.red
            textColor: "white"
            onClicked: root.confirmed()
        }
    }
}
