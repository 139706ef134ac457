import QtQuick
import Orvane

/// Asks whether an application may be ended, in a modal window. Return and Escape both answer no
/// until the keyboard is moved to "Kill".
Item {
    id: root

    property var processToKill  ///< a ProcessRecord, kept until the next request

    signal confirmed(var record)

    /// Nothing for no record.
    function request(record: var) {
        if (!record || !record.valid)
            return;
        processToKill = record;
        loader.active = true;
    }

    function dismiss() {
        loader.active = false;
    }

    Loader {
        id: loader

        readonly property var owner: root.Window.window

        active: false
        sourceComponent: Window {
            id: window

            title: qsTr("Kill Process?", "title of the question before an application is ended")
            flags: Qt.Dialog | Qt.FramelessWindowHint
            modality: Qt.WindowModal
            transientParent: loader.owner
            color: "transparent"
            width: 300
            height: content.implicitHeight + 40
            minimumWidth: width
            maximumWidth: width
            minimumHeight: height
            maximumHeight: height

            onClosing: close => {
                close.accepted = false;
                root.dismiss();
            }
            Component.onCompleted: {
                if (loader.owner) {
                    x = loader.owner.x + Math.round((loader.owner.width - width) / 2);
                    y = loader.owner.y + Math.round((loader.owner.height - height) / 3);
                }
                visible = true;
                requestActivate();
                cancel.forceActiveFocus(Qt.TabFocusReason);
            }

            Connections {
                target: loader.owner

                function onVisibleChanged() {
                    if (!loader.owner.visible)
                        root.dismiss();
                }

                // The owner, blocked by the question, may get the focus by a click or when another
                // window closes.
                function onActiveChanged() {
                    if (loader.owner.active)
                        window.requestActivate();
                }
            }

            SmoothRectangle {
                anchors.fill: parent
                radius: Theme.windowRadius
                color: Theme.menuBackground
                borderColor: Theme.windowOutline
                borderWidth: 1
            }

            Item {
                id: content

                x: 20
                y: 20
                width: window.width - 40
                height: implicitHeight
                implicitHeight: texts.height + 20 + cancel.height
                Accessible.role: Accessible.Dialog
                Accessible.name: window.title
                Accessible.description: message.text
                Keys.onEscapePressed: root.dismiss()
                Keys.onLeftPressed: cancel.forceActiveFocus(Qt.TabFocusReason)
                Keys.onRightPressed: kill.forceActiveFocus(Qt.TabFocusReason)

                Column {
                    id: texts

                    width: content.width
                    spacing: 10

                    ApplicationIcon {
                        anchors.horizontalCenter: parent.horizontalCenter
                        source: root.processToKill.iconSource
                        side: 48
                        symbolSize: 20
                    }

                    Text {
                        width: parent.width
                        horizontalAlignment: Text.AlignHCenter
                        text: window.title
                        font: Theme.headline
                        color: Theme.label
                    }

                    Text {
                        id: message

                        objectName: "message"
                        width: parent.width
                        horizontalAlignment: Text.AlignHCenter
                        text: ProcessText.killQuestion(root.processToKill)
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
                    name: qsTr("Cancel", "button: changes nothing")
                    textColor: Theme.label
                    focus: true
                    onClicked: root.dismiss()
                }

                ActionButton {
                    id: kill

                    objectName: "kill"
                    anchors.bottom: parent.bottom
                    anchors.right: parent.right
                    width: cancel.width
                    name: qsTr("Kill", "button: ends an application at once")
                    fill: Theme.red
                    textColor: "white"
                    onClicked: {
                        root.dismiss();
                        root.confirmed(root.processToKill);
                    }
                }
            }
        }
    }
}
