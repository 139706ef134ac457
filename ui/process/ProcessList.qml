pragma ComponentBehavior: Bound
import QtQuick
import Orvane

/// The rows of the list of applications. Up and Down move the selection while it is on screen.
ScrollArea {
    id: root

    required property MemoryModel model
    required property WindowController windows

    signal killRequested(var record)

    /// Opens the context menu of the row that has the keyboard, or else of the selected row.
    function openMenuByKey() {
        let target = null as ProcessRow;
        for (let i = 0; i < rows.count; ++i) {
            const row = rows.itemAt(i) as ProcessRow;
            if (row.hasKeyboard || (row.isSelected && !target?.hasKeyboard))
                target = row;
        }
        if (!target)
            return;
        reveal(target);
        menu.openAt(target, 46, 46);
    }

    contentHeight: column.height + 16
    backdrop: Theme.windowGradient
    fadesBelow: true
    Accessible.role: Accessible.List
    Accessible.name: qsTr("Applications", "name of the list, for assistive technology")

    ProcessKeyNavigation {
        model: root.model
        onMoved: row => root.scrollToCentre(rows.itemAt(row))
    }

    Shortcut {
        sequences: ["Menu", "Shift+F10"]
        onActivated: root.openMenuByKey()
    }

    Column {
        id: column

        x: 20
        y: 8
        width: root.width - 40
        spacing: 6

        Repeater {
            id: rows

            model: root.model.processes
            delegate: ProcessRow {
                id: row

                objectName: "row"
                width: column.width
                memoryModel: root.model
                windows: root.windows
                onChosen: {
                    root.model.selection = record;
                    revealing.row = row;
                    revealing.restart();
                }
                onMenuRequested: (x, y) => menu.openAt(row, x, y)
            }
        }
    }

    // Scrolls in the next turn: the SelectionBar that appears in this one may cover the row.
    Timer {
        id: revealing

        property ProcessRow row

        interval: 0
        onTriggered: if (row)
            root.reveal(row)
    }

    Item {
        id: menuAnchor

        width: 1
        height: 1
    }

    PopupMenu {
        id: menu

        property var record

        function openAt(row: ProcessRow, x: real, y: real) {
            const place = row.mapToItem(menuAnchor.parent, x, y);
            menuAnchor.x = place.x;
            menuAnchor.y = place.y;
            record = row.record;
            open();
        }

        objectName: "contextMenu"
        anchorItem: menuAnchor
        gap: 0
        title: record ? record.name : ""

        MenuEntry {
            text: qsTr("Kill Process", "button: ends an application at once, after a question")
            destructive: true
            onTriggered: root.killRequested(menu.record)
        }
    }
}
