import QtQuick

/// Whether an item is visible in a window that is on the screen: nothing should move otherwise.
QtObject {
    required property Item item
    readonly property bool holds: item.visible && item.Window.visibility !== Window.Hidden && item.Window.visibility !== Window.Minimized
}
