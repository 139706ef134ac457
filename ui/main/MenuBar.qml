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

    function move(from: MenuBarTitle, direction: int) {
        const count = titles.children.length;
        for (let i = 0; i < count; ++i) {
            if (titles.children[i] !== from)
                continue;
            const next = titleAt((i + direction + count) % count);
            next.forceActiveFocus(Qt.MenuBarFocusReason);
            if (from.wasOpen)
                next.openMenu();
            return;
        }
    }

    /// With a menu open, the title under the pointer opens its own.
    function switchTo(from: MenuBarTitle, place: point) {
        const title = titles.childAt(titles.mapFromGlobal(place).x, titles.mapFromGlobal(place).y) as MenuBarTitle;
        if (!title || title === from)
            return;
        from.closeMenu();
        title.openMenu();
    }

    height: 20
    Accessible.role: Accessible.MenuBar
    Accessible.name: qsTr("Menu bar")
    Keys.onEscapePressed: leave()

    AltKeyWatcher {
        window: root.Window.window
        onPressedAlone: root.enter()
    }

    Shortcut {
        sequence: "F10"
        onActivated: root.enter()
    }
    Shortcut {
        sequence: "Ctrl+U"
        onActivated: root.windows.checkForUpdates()
    }
    Shortcut {
        sequence: "Ctrl+Q"
        onActivated: root.windows.quitApp()
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
            id: program

            name: qsTr("Orvane")
            isBold: true
            onMovedSideways: direction => root.move(program, direction)
            onPointerMovedOutside: place => root.switchTo(program, place)
            onChosen: root.leave()

            MenuEntry {
                text: qsTr("About Orvane")
                onTriggered: root.windows.showAbout()
            }
            MenuDivider {}
            MenuEntry {
                text: qsTr("Check for Updates...")
                shortcut: "Ctrl+U"
                onTriggered: root.windows.checkForUpdates()
            }
            MenuDivider {}
            MenuEntry {
                text: qsTr("Quit Orvane")
                shortcut: "Ctrl+Q"
                onTriggered: root.windows.quitApp()
            }
        }
        MenuBarTitle {
            id: file

            name: qsTr("File")
            onMovedSideways: direction => root.move(file, direction)
            onPointerMovedOutside: place => root.switchTo(file, place)
            onChosen: root.leave()

            MenuEntry {
                text: qsTr("Close Window")
                shortcut: "Ctrl+W"
                onTriggered: root.Window.window.close()
            }
        }
        MenuBarTitle {
            id: window

            name: qsTr("Window")
            onMovedSideways: direction => root.move(window, direction)
            onPointerMovedOutside: place => root.switchTo(window, place)
            onChosen: root.leave()

            MenuEntry {
                text: qsTr("Minimize")
                shortcut: "Ctrl+M"
                onTriggered: root.Window.window.showMinimized()
            }
        }
        MenuBarTitle {
            id: help

            name: qsTr("Help")
            onMovedSideways: direction => root.move(help, direction)
            onPointerMovedOutside: place => root.switchTo(help, place)
            onChosen: root.leave()

            MenuEntry {
                text: qsTr("Contact Support")
                onTriggered: root.windows.openSupportEmail()
            }
        }
    }
}
