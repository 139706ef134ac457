import QtQuick
import Orvane

/// What the program is: name, version, licence, what it is built on.
DialogWindow {
    id: root

    required property WindowController windows

    title: qsTr("About Orvane", "entry of the program's menu, and title of its window")
    contentWidth: 320
    contentHeight: body.height + 48
    onAccepted: close()

    Column {
        id: body

        x: 24
        y: 24
        width: root.contentWidth - 48
        spacing: 6

        Image {
            anchors.horizontalCenter: parent.horizontalCenter
            width: 80
            height: 80
            sourceSize.width: 80
            sourceSize.height: 80
            source: "qrc:/orvane/icons/orvane.svg"
            Accessible.ignored: true
        }

        Repeater {
            model: [
                {text: "Orvane", font: Theme.systemFont(18, Font.DemiBold), strong: true},
                {text: qsTr("Version %1", "in About").arg(root.windows.version), font: Theme.subheadline, strong: false},
                {text: qsTr("Memory usage at a glance.", "what the program is, in About"), font: Theme.subheadline, strong: true},
                {text: qsTr("Free software under the MIT licence.\nCopyright © 2026 The Orvane team", "in About"), font: Theme.caption, strong: false},
                {text: qsTr("Built on %1", "names and versions of libraries").arg(root.windows.builtOn), font: Theme.caption, strong: false}
            ]
            delegate: SpokenText {
                required property var modelData

                width: body.width
                horizontalAlignment: Text.AlignHCenter
                wrapMode: Text.Wrap
                text: modelData.text
                font: modelData.font
                color: modelData.strong ? Theme.label : Theme.secondaryLabel
            }
        }

        Item {
            width: 1
            height: 6
        }

        ActionButton {
            anchors.horizontalCenter: parent.horizontalCenter
            name: qsTr("OK", "button: closes the window")
            fill: Theme.blue
            textColor: "white"
            onClicked: root.close()
        }
    }
}
