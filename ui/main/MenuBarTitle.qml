import QtQuick
import Orvane

/// One title of the menu bar with its menu.
PlainButton {
    id: root

    required property PopupMenu menu  ///< the menu bar's, for all titles
    default property list<MenuEntry> entries
    property bool isBold: false
    readonly property bool isOpen: menu.isOpen && menu.anchorItem === root
    readonly property bool ownsArrowKeys: true

    function openMenu(byKey: bool) {
        menu.close();
        menu.anchorItem = root;
        menu.selectsFirst = byKey;
        menu.open();
    }

    width: title.implicitWidth + 14
    height: 20
    focusRadius: 4
    activeFocusOnTab: false
    pressesAtOnce: true
    onClicked: isOpen ? menu.close() : openMenu(false)
    Keys.onDownPressed: openMenu(true)

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
