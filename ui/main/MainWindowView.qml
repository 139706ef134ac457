import QtQuick
import Orvane

/// The main window: its background and, below a strip of 20 points for the menu bar, its content.
Item {
    id: root

    required property MemoryModel model
    required property MainWindowActions actions
    readonly property real barHeight: 20

    width: content.width
    height: barHeight + content.height

    MainWindowBackground {
        anchors.fill: parent
    }

    MenuBar {
        width: parent.width
        actions: root.actions
    }

    ContentView {
        id: content

        objectName: "content"
        y: root.barHeight
        model: root.model
        actions: root.actions
        focus: true
    }
}
