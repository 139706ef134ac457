import QtQuick
import Orvane

/// The main window: its background and, below a strip of 20 points for the menu bar, its content,
/// which scrolls where the screen leaves the window less height.
Window {
    id: root

    required property WindowController windows
    readonly property real barHeight: 20

    title: "Orvane"
    color: "transparent"
    visible: false
    width: 440
    height: 510
    minimumWidth: width
    maximumWidth: width
    minimumHeight: height
    maximumHeight: height
    // The shell hides it, so that its place is kept.
    onClosing: close => {
        close.accepted = false;
        windows.closeMainWindow();
    }

    GradientBackground {
        anchors.fill: parent
        colors: Theme.windowGradient
    }

    MenuBar {
        width: root.width
        windows: root.windows
    }

    ContentView {
        id: content

        objectName: "content"
        y: root.barHeight
        height: root.height - y
        model: root.windows.model
        windows: root.windows
        focus: true
    }
}
