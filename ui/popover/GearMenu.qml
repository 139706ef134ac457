import QtQuick
import Orvane

/// The popover's menu: the main window, launch at login, updates, quit.
PlainButton {
    id: root

    required property WindowController windows
    readonly property alias menuOpen: menu.isOpen
    readonly property alias menu: menu

    implicitWidth: 22 + 16
    implicitHeight: gear.height + 16
    name: qsTr("Settings", "name of the gear's menu")
    pressesAtOnce: true
    focusInset: 2
    onClicked: {
        windows.reload();
        menu.open();
    }
    Keys.onDownPressed: clicked()

    HoverEffect {
        inRightCorner: true
        z: -1
    }

    Symbol {
        id: gear

        anchors.centerIn: parent
        name: "gearshape.fill"
        pointSize: 13
        color: Theme.secondaryLabel
    }

    PopupMenu {
        id: menu

        anchorItem: root
        title: root.name

        MenuEntry {
            text: qsTr("Show Window", "entry of a menu, with a check mark")
            checkable: true
            checked: root.windows.isMainWindowVisible
            onTriggered: root.windows.isMainWindowVisible = !checked
        }
        MenuDivider {}
        MenuEntry {
            text: qsTr("Launch at Login", "entry of a menu, with a check mark")
            checkable: true
            checked: root.windows.launchAtLogin
            onTriggered: root.windows.launchAtLogin = !checked
        }
        MenuDivider {}
        MenuEntry {
            text: qsTr("Check for Updates...", "entry of a menu")
            onTriggered: root.windows.checkForUpdates()
        }
        MenuDivider {}
        MenuEntry {
            text: qsTr("Quit Orvane", "entry of a menu")
            onTriggered: root.windows.quitApp()
        }
    }
}
