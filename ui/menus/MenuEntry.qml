import QtQuick

/// One entry of a PopupMenu.
QtObject {
    property string text
    property string shortcut  ///< its keys as text, for menus of a menu bar
    property bool checkable: false
    property bool checked: false
    property bool enabled: true
    property bool destructive: false
    property bool isTitle: false  ///< heads the entries below it
    property bool isDivider: false

    signal triggered
}
