import QtQuick
import Orvane

/// The title of the list with its sort menu and refresh button.
Item {
    id: root

    required property MemoryModel model

    implicitHeight: 12 + Math.max(title.implicitHeight, 16) + 8

    Text {
        id: title

        x: 20
        anchors.verticalCenter: buttons.verticalCenter
        text: qsTr("Top Memory Consumers")
        font: Theme.systemFont(11, Font.Medium)
        color: Theme.secondaryLabel
        Accessible.role: Accessible.Heading
        Accessible.name: text
    }

    // The buttons reach 4 points beyond their symbols on every side: easier to hit.
    Row {
        id: buttons

        anchors.right: parent.right
        anchors.rightMargin: 16
        y: 12 + (Math.max(title.implicitHeight, 16) - height) / 2

        PlainButton {
            id: sortButton

            objectName: "sortMenu"
            width: 24
            height: 24
            name: qsTr("Sort by")
            toolTip: qsTr("Sort by...")
            Accessible.role: Accessible.ButtonMenu
            onClicked: menu.open()

            Symbol {
                anchors.centerIn: parent
                name: "arrow.up.arrow.down"
                pointSize: 13
                color: Theme.blue
                opacity: sortButton.pressedDown ? 0.6 : 1
            }

            PopupMenu {
                id: menu

                anchorItem: sortButton
                title: sortButton.name

                MenuEntry {
                    text: qsTr("Sort by")
                    isTitle: true
                }
                MenuEntry {
                    text: qsTr("Current Memory")
                    checkable: true
                    checked: root.model.sortMode === MemoryModel.CurrentMemory
                    onTriggered: root.model.sortMode = MemoryModel.CurrentMemory
                }
                MenuEntry {
                    text: qsTr("Average Memory")
                    checkable: true
                    checked: root.model.sortMode === MemoryModel.AverageMemory
                    onTriggered: root.model.sortMode = MemoryModel.AverageMemory
                }
                MenuEntry {
                    text: qsTr("Peak Memory")
                    checkable: true
                    checked: root.model.sortMode === MemoryModel.PeakMemory
                    onTriggered: root.model.sortMode = MemoryModel.PeakMemory
                }
            }
        }

        PlainButton {
            objectName: "refresh"
            width: 24
            height: 24
            name: qsTr("Refresh")
            toolTip: qsTr("Refresh process list")
            enabled: !root.model.hasSelection
            onClicked: {
                if (!root.model.hasSelection)
                    root.model.updateTopProcesses();
            }

            Symbol {
                anchors.centerIn: parent
                name: "arrow.clockwise"
                color: Theme.blue
                opacity: !parent.enabled ? 0.35 : (parent as PlainButton).pressedDown ? 0.6 : 1
            }
        }
    }
}
