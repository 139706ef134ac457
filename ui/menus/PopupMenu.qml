import QtQuick
import Orvane

/// A menu in a window of its own: MenuEntry and MenuDivider children, opened with open().
///
/// Keys: Up, Down, Home, End, Return, Enter, Space, Escape.
PopupWindow {
    id: root

    default property list<MenuEntry> entries

    /// An entry was chosen; comes before what the entry does.
    signal chosen
    /// Left (-1) or Right (1) in an open menu.
    signal movedSideways(int direction)

    ownsArrowKeys: true
    content: MenuList {
        entries: root.entries
        title: root.title
        // Opened by key: the next key is meant for the first entry.
        Component.onCompleted: if (root.anchorItem.activeFocus)
            move(-1, 1)
        onMovedSideways: direction => root.movedSideways(direction)
        onChosen: entry => {
            root.close();
            root.chosen();
            entry.triggered();
        }
    }
}
