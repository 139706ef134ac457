import QtQuick
import Orvane

/// The title of the list with its sort menu and refresh button.
Item {
    id: root

    required property MemoryModel model

    implicitHeight: 12 + Math.max(title.implicitHeight, 16) + 8

    SpokenText {
        id: title

        x: 20
        anchors.verticalCenter: buttons.verticalCenter
        text: qsTr("Top Memory Consumers")
        font: Theme.systemFont(11, Font.Medium)
        Accessible.role: Accessible.Heading
    }

    Row {
        id: buttons

        anchors.right: parent.right
        anchors.rightMargin: 16
        y: 12 + (Math.max(title.implicitHeight, 16) - height) / 2

        SymbolButton {
            id: sortButton

            objectName: "sortMenu"
            symbol: "arrow.up.arrow.down"
            name: qsTr("Sort by")
            toolTip: qsTr("Sort by...")
            pressesAtOnce: true
            onClicked: menu.open()

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

        SymbolButton {
            objectName: "refresh"
            symbol: "arrow.clockwise"
            name: qsTr("Refresh")
            toolTip: qsTr("Refresh process list")
            enabled: !root.model.hasSelection
            onClicked: root.model.updateTopProcesses()
        }
    }
}
