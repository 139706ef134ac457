import QtQuick
import Orvane

/// A menu in a window of its own: MenuEntry and MenuDivider children, opened with open().
///
/// By pointer: a click on an entry, or press, drag and release. Keys: Up, Down, Home, End, Return, Enter, Space, Escape.
PopupWindow {
    id: root

    default property list<MenuEntry> entries
    property bool selectsFirst: false  ///< opened by key: the next key is meant for the first entry

    /// An entry was chosen; comes before what the entry does.
    signal chosen
    /// Left (-1) or Right (1) in an open menu.
    signal movedSideways(int direction)

    ownsArrowKeys: true
    content: MenuList {
        id: list

        entries: root.entries
        title: root.title
        Component.onCompleted: if (root.selectsFirst || root.anchorItem.activeFocus)
            move(-1, 1)
        onMovedSideways: direction => root.movedSideways(direction)
        onChosen: entry => {
            root.close();
            root.chosen();
            entry.triggered();
        }

        Connections {
            target: root

            function onDragged(place: point) {
                list.currentIndex = list.rowAt(place);
            }

            function onDropped(place: point) {
                if (list.rowAt(place) >= 0)
                    list.choose(list.rowAt(place));
                else
                    root.close();
            }
        }
    }
}
