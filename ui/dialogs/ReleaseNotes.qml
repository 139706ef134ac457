import QtQuick
import Orvane

/// Plain text in a box that scrolls by wheel and key.
FocusScope {
    id: root

    property string text

    activeFocusOnTab: visible
    Accessible.role: Accessible.EditableText
    Accessible.readOnly: true
    Accessible.name: text

    SmoothRectangle {
        anchors.fill: parent
        radius: 6
        color: Theme.pathBox
    }

    ScrollArea {
        id: area

        anchors.fill: parent
        anchors.margins: 8
        contentWidth: width
        contentHeight: notes.height
        backdrop: [Qt.tint(Theme.windowBackground, Theme.pathBox)]
        fadesBelow: true
        focus: true
        Keys.onUpPressed: scrollBy(-20)
        Keys.onDownPressed: scrollBy(20)

        Text {
            id: notes

            width: area.width - 8
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
