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
        text: qsTr("Top Memory Consumers", "title of the list of applications")
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
            name: qsTr("Sort by", "title of a menu")
            toolTip: qsTr("Sort by...", "tooltip of a button with a menu")
            pressesAtOnce: true
            onClicked: menu.open()

            PopupMenu {
                id: menu

                anchorItem: sortButton
                title: sortButton.name

                MenuEntry {
                    text: qsTr("Sort by", "title of a menu")
                    isTitle: true
                }
                MenuEntry {
                    text: qsTr("Current Memory", "entry of the sort menu")
                    checkable: true
                    checked: root.model.sortMode === MemoryModel.CurrentMemory
                    onTriggered: root.model.sortMode = MemoryModel.CurrentMemory
                }
                MenuEntry {
                    text: qsTr("Average Memory", "entry of the sort menu")
                    checkable: true
                    checked: root.model.sortMode === MemoryModel.AverageMemory
                    onTriggered: root.model.sortMode = MemoryModel.AverageMemory
                }
                MenuEntry {
                    text: qsTr("Peak Memory", "entry of the sort menu")
                    checkable: true
                    checked: root.model.sortMode === MemoryModel.PeakMemory
                    onTriggered: root.model.sortMode = MemoryModel.PeakMemory
                }
            }
        }

        SymbolButton {
            objectName: "refresh"
            symbol: "arrow.clockwise"
            name: qsTr("Refresh", "name of a button, for assistive technology")
            toolTip: qsTr("Refresh process list", "tooltip of a button")
            enabled: !root.model.hasSelection
            onClicked: root.model.updateTopProcesses()
        }
    }
}
