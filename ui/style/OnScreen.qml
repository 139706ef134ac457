import QtQuick

/// Whether an item can be seen, as far as its window tells: nothing should move while it can't.
QtObject {
    required property Item item
    readonly property bool holds: item.visible && item.Window.visibility !== Window.Hidden && item.Window.visibility !== Window.Minimized
}
