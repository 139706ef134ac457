pragma ComponentBehavior: Bound
import QtQuick
import Orvane

/// The rows of a PopupMenu.
FocusScope {
    id: root

    required property list<MenuEntry> entries
    required property string title
    property int currentIndex: -1

    readonly property bool hasChecks: marks().includes(true)

    signal chosen(MenuEntry entry)
    signal movedSideways(int direction)

    function marks(): list<bool> {
        let result = [];
        for (let i = 0; i < entries.length; ++i)
            result.push(entries[i].checkable);
        return result;
    }

    function choosable(): list<bool> {
        let result = [];
        for (let i = 0; i < entries.length; ++i)
            result.push(entries[i].enabled && !entries[i].isDivider && !entries[i].isTitle);
        return result;
    }

    function move(from: int, direction: int) {
        currentIndex = navigator.next(choosable(), from, direction);
    }

    /// The row at a place on the screen, -1 for none.
    function rowAt(place: point): int {
        const inside = rows.mapFromGlobal(place.x, place.y);
        return (rows.childAt(inside.x, inside.y) as MenuRow)?.index ?? -1;
    }

    function choose(index: int) {
        if (index >= 0 && choosable()[index])
            root.chosen(entries[index]);
    }

    implicitWidth: Math.max(120, rows.widest + 10)
    implicitHeight: rows.height + 10
    focus: true
    Accessible.role: Accessible.PopupMenu
    Accessible.name: title
    Accessible.focused: currentIndex < 0

    Keys.onUpPressed: move(currentIndex, -1)
    Keys.onDownPressed: move(currentIndex, 1)
    Keys.onLeftPressed: movedSideways(-1)
    Keys.onRightPressed: movedSideways(1)
    Keys.onReturnPressed: choose(currentIndex)
    Keys.onEnterPressed: choose(currentIndex)
    Keys.onSpacePressed: choose(currentIndex)
    Keys.onPressed: event => {
        if (event.key === Qt.Key_Home)
            move(-1, 1);
        else if (event.key === Qt.Key_End)
            move(0, -1);
        else
            return;
        event.accepted = true;
    }

    PopupController {
        id: navigator
    }

    Column {
        id: rows

        readonly property real widest: {
            let width = 0;
            for (let i = 0; i < children.length; ++i)
                width = Math.max(width, children[i].implicitWidth);
            return width;
        }

        x: 5
        y: 5
        width: root.width - 10

        Repeater {
            id: repeater

            model: root.entries
            delegate: MenuRow {
                required property MenuEntry modelData

                width: rows.width
                entry: modelData
                indented: root.hasChecks
                current: root.currentIndex === index
                onHovered: root.currentIndex = index
                onUnhovered: if (root.currentIndex === index)
                    root.currentIndex = -1
                onPressed: root.choose(index)
            }
        }
    }
}
