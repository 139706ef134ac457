import QtQuick
import Orvane

/// Plain text in a box that scrolls, by wheel and by the arrow keys.
FocusScope {
    id: root

    property string text

    activeFocusOnTab: visible

    SmoothRectangle {
        anchors.fill: parent
        radius: 6
        color: Theme.pathBox
    }

    Flickable {
        id: flickable

        anchors.fill: parent
        anchors.margins: 8
        contentWidth: width
        contentHeight: notes.height
        clip: true
        focus: true
        boundsBehavior: Flickable.StopAtBounds
        Keys.onUpPressed: contentY = Math.max(0, contentY - 20)
        Keys.onDownPressed: contentY = Math.max(0, Math.min(contentHeight - height, contentY + 20))

        Text {
            id: notes

            width: flickable.width
            text: root.text
            textFormat: Text.PlainText
            font: Theme.subheadline
            color: Theme.label
            wrapMode: Text.Wrap
        }
    }

    FocusRing {
        anchors.fill: parent
        radius: 6
        visible: root.activeFocus
    }
}
