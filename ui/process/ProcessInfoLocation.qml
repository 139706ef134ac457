import QtQuick
import Orvane

/// Where an application is on the disk.
ProcessInfoSection {
    id: root

    required property var record  ///< a ProcessRecord
    required property WindowController windows

    signal revealed

    contentSpacing: 8

    Item {
        width: root.width
        height: heading.height

        SpokenText {
            id: heading

            text: qsTr("Application Location", "heading above an application's path")
            font: Theme.systemFont(11, Font.DemiBold)
            color: Theme.label
        }

        PlainButton {
            id: reveal

            objectName: "reveal"
            anchors.right: parent.right
            anchors.verticalCenter: heading.verticalCenter
            width: label.width
            height: heading.height
            name: qsTr("Reveal", "button: shows the application's file in the file manager")
            description: tip.text
            focusInset: -3
            onClicked: {
                root.windows.revealExecutable(root.record);
                root.revealed();
            }

            Row {
                id: label

                spacing: 3
                opacity: reveal.pressedDown ? 0.6 : 1

                Label {
                    anchors.verticalCenter: parent.verticalCenter
                    text: reveal.name
                    color: Theme.blue
                }

                Symbol {
                    anchors.verticalCenter: parent.verticalCenter
                    name: "arrow.up.forward"
                    pointSize: 9
                    color: Theme.blue
                }
            }

            ToolTipWindow {
                id: tip

                button: reveal
                text: qsTr("Show in Finder", "tooltip: in the file manager")
            }
        }
    }

    SmoothRectangle {
        width: root.width
        height: path.height + 16
        radius: 6
        color: Theme.pathBox

        TextEdit {
            id: path

            /// The part of the whole path that is selected in what is shown of it.
            function copyPart(forMiddleClick: bool) {
                ProcessText.copyPart(root.record.path, text, selectionStart, selectionEnd, forMiddleClick);
            }

            objectName: "path"
            x: 8
            y: 8
            width: root.width - 16
            horizontalAlignment: TextEdit.AlignLeft  // for names written from right to left too
            text: ProcessText.middleElided(root.record.path, font, width, 2)
            textFormat: TextEdit.PlainText
            wrapMode: TextEdit.WrapAnywhere
            font: Theme.monospacedFont(9)
            color: Theme.secondaryLabel
            selectionColor: Theme.withOpacity(Theme.blue, 0.35)
            selectedTextColor: color
            readOnly: true
            selectByMouse: true
            selectByKeyboard: true
            persistentSelection: true
            activeFocusOnTab: true
            Accessible.role: Accessible.EditableText
            Accessible.readOnly: true
            Accessible.name: qsTr("Path", "name of an application's path, for assistive technology")
            Accessible.description: root.record.path
            Keys.onPressed: event => {
                event.accepted = event.matches(StandardKey.Copy);
                if (event.accepted)
                    copyPart(false);
            }

            HoverHandler {
                cursorShape: Qt.IBeamCursor
            }

            PointHandler {
                onActiveChanged: if (!active)
                    path.copyPart(true)
            }
        }

        FocusRing {
            anchors.fill: parent
            radius: 6
            visible: path.activeFocus
        }
    }
}
