import QtQuick
import Orvane

/// The main window's menu bar. F10, or Alt pressed and released alone, moves the keyboard into it;
/// Escape and a chosen entry move it back to where it was.
FocusScope {
    id: root

    required property WindowController windows
    property Item previousFocus

    function enter() {
        if (activeFocus) {
            leave();
            return;
        }
        previousFocus = Window.activeFocusItem;
        titleAt(0).forceActiveFocus(Qt.MenuBarFocusReason);
    }

    function leave() {
        if (previousFocus)
            previousFocus.forceActiveFocus(Qt.MenuBarFocusReason);
        previousFocus = null;
    }

    function titleAt(index: int): MenuBarTitle {
        return titles.children[index] as MenuBarTitle;
    }

    /// Left (-1) or Right (1) from the title with the keyboard; an open menu moves along.
    function move(direction: int) {
        const wasOpen = popup.isOpen;
        const count = titles.children.length;
        for (let i = 0; i < count; ++i) {
            if (wasOpen ? titleAt(i) !== popup.owner : !titleAt(i).activeFocus)
                continue;
            const next = titleAt((i + direction + count) % count);
            next.forceActiveFocus(Qt.MenuBarFocusReason);
            if (wasOpen)
                next.openMenu(true);
            return;
        }
    }

    height: 20
    Accessible.role: Accessible.MenuBar
    Accessible.name: qsTr("Menu bar", "name for assistive technology")
    Keys.onEscapePressed: leave()
    Keys.onLeftPressed: move(-1)
    Keys.onRightPressed: move(1)

    AltKeyWatcher {
        window: root.Window.window
        onPressedAlone: root.enter()
    }

    Shortcut {
        sequence: "F10"
        onActivated: root.enter()
    }
    Shortcut {
        sequence: "Ctrl+W"
        onActivated: root.Window.window.close()
    }
    Shortcut {
        sequence: "Ctrl+M"
        onActivated: root.Window.window.showMinimized()
    }

    Row {
        id: titles

        x: 6

        MenuBarTitle {
            menu: popup
            name: "Orvane"
            isBold: true

            MenuEntry {
                text: qsTr("About Orvane", "entry of the program's menu, and title of its window")
                onTriggered: root.windows.showAbout()
            }
            MenuDivider {}
            MenuEntry {
                text: qsTr("Check for Updates...", "entry of a menu")
                shortcut: "Ctrl+U"
                onTriggered: root.windows.checkForUpdates()
            }
            MenuDivider {}
            MenuEntry {
                text: qsTr("Quit Orvane", "entry of a menu")
                shortcut: "Ctrl+Q"
                onTriggered: root.windows.quitApp()
            }
        }
        MenuBarTitle {
            menu: popup
            name: qsTr("File", "title of a menu")

            MenuEntry {
                text: qsTr("Close Window", "entry of the File menu")
                shortcut: "Ctrl+W"
                onTriggered: root.Window.window.close()
            }
        }
        MenuBarTitle {
            menu: popup
            name: qsTr("Window", "title of a menu")

            MenuEntry {
                text: qsTr("Minimize", "entry of the Window menu")
                shortcut: "Ctrl+M"
                onTriggered: root.Window.window.showMinimized()
            }
        }
        MenuBarTitle {
            menu: popup
            name: qsTr("Help", "title of a menu")

            MenuEntry {
                text: qsTr("Contact Support", "entry of the Help menu")
                onTriggered: root.windows.openSupportEmail()
            }
        }
    }

    PopupMenu {
        id: popup

        readonly property MenuBarTitle owner: anchorItem as MenuBarTitle

        anchorItem: titles
        entries: owner ? owner.entries : []
        title: owner ? owner.name : ""
        gap: 2
        onChosen: root.leave()
        onMovedSideways: direction => root.move(direction)
        // With a menu open, the title under the pointer opens its own.
        onPointerMovedOutside: place => {
            const at = titles.mapFromGlobal(place);
            const title = titles.childAt(at.x, at.y) as MenuBarTitle;
            if (title && title !== owner)
                title.openMenu(false);
        }
    }
}
