import QtQuick
import Orvane

/// The popover's menu: the main window, launch at login, updates, quit.
PlainButton {
    id: root

    required property PopoverActions actions
    readonly property alias menuOpen: menu.isOpen
    readonly property alias menu: menu

    implicitWidth: 22 + 16
    implicitHeight: gear.height + 16
    name: qsTr("Settings")
    hovers: true
    focusInset: 2
    Accessible.role: Accessible.ButtonMenu
    onClicked: {
        actions.reload();
        menu.open();
    }
    Keys.onDownPressed: clicked()

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
            text: qsTr("Show Window")
            checkable: true
            checked: root.actions.mainWindowVisible
            onTriggered: root.actions.mainWindowVisible = !checked
        }
        MenuDivider {}
        MenuEntry {
            text: qsTr("Launch at Login")
            checkable: true
            checked: root.actions.launchAtLogin
            onTriggered: root.actions.launchAtLogin = !checked
        }
        MenuDivider {}
        MenuEntry {
            text: qsTr("Check for Updates...")
            onTriggered: root.actions.checkUpdates()
        }
        MenuDivider {}
        MenuEntry {
            text: qsTr("Quit Orvane")
            onTriggered: root.actions.quit()
        }
    }
}
