import QtQuick
import Orvane

/// One title of the menu bar with its menu.
PlainButton {
    id: root

    default property alias entries: menu.entries
    property bool isBold: false
    property bool wasOpen: false  ///< when Left or Right was pressed

    signal movedSideways(int direction)
    signal chosen  ///< an entry, by whatever means
    signal pointerMovedOutside(point place)  ///< on the screen, while the menu is open

    function moveSideways(direction: int, open: bool) {
        wasOpen = open;
        movedSideways(direction);
    }

    function openMenu() {
        menu.open();
    }

    function closeMenu() {
        menu.close();
    }

    width: title.implicitWidth + 14
    height: 20
    focusRadius: 4
    activeFocusOnTab: false
    Accessible.role: Accessible.ButtonMenu
    onClicked: menu.isOpen ? menu.close() : menu.open()
    Keys.onDownPressed: menu.open()
    Keys.onLeftPressed: moveSideways(-1, false)
    Keys.onRightPressed: moveSideways(1, false)

    SmoothRectangle {
        anchors.fill: parent
        visible: menu.isOpen || root.containsMouse
        radius: 4
        color: Theme.withOpacity(Theme.gray, menu.isOpen ? 0.25 : 0.12)
    }

    Text {
        id: title

        anchors.centerIn: parent
        text: root.name
        font: Theme.systemFont(12, root.isBold ? Font.DemiBold : Font.Normal)
        color: Theme.label
        Accessible.ignored: true
    }

    PopupMenu {
        id: menu

        anchorItem: root
        gap: 2
        title: root.name
        onChosen: root.chosen()
        onPointerMovedOutside: place => root.pointerMovedOutside(place)
        onMovedSideways: direction => {
            menu.close();
            root.moveSideways(direction, true);
        }
    }
}
