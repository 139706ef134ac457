import QtQuick
import Orvane

/// One title of the menu bar with its menu.
PlainButton {
    id: root

    required property PopupMenu menu  ///< the menu bar's, for all titles
    default property list<MenuEntry> entries
    property bool isBold: false
    readonly property bool isOpen: menu.isOpen && menu.anchorItem === root

    function openMenu() {
        menu.close();
        menu.anchorItem = root;
        menu.open();
    }

    width: title.implicitWidth + 14
    height: 20
    focusRadius: 4
    activeFocusOnTab: false
    onClicked: isOpen ? menu.close() : openMenu()
    Keys.onDownPressed: openMenu()

    SmoothRectangle {
        anchors.fill: parent
        visible: root.isOpen || root.containsMouse
        radius: 4
        color: Theme.withOpacity(Theme.gray, root.isOpen ? 0.25 : 0.12)
    }

    Text {
        id: title

        anchors.centerIn: parent
        text: root.name
        font: Theme.systemFont(12, root.isBold ? Font.DemiBold : Font.Normal)
        color: Theme.label
        Accessible.ignored: true
    }
}
