import QtQuick
import Orvane

/// A frameless window of its own beside an item, which it follows: inside the screen, above other
/// windows, closed by Escape, by a press outside, when the item is scrolled away and when the
/// item's window is left. Its content is loaded while it is open; the content's implicit size is
/// the window's size.
Item {
    id: root

    required property Item anchorItem
    required property Component content
    property int edge: PopupController.Below
    property real gap: 4  ///< points between the item and the window
    property color color: Theme.menuBackground
    property real radius: Theme.windowRadius > 0 ? 8 : 0
    property real arrow: 0  ///< points of an arrow at the item, for the trailing edge; 0 = none
    /// Up and Down are the window's own, whatever else takes them in the program.
    property bool ownsArrowKeys: false
    readonly property bool isOpen: loader.active
    readonly property Item contentItem: loader.item ? (loader.item as PopupFrame).contentItem : null

    /// The pointer is at this place of the screen, outside of the open window.
    signal pointerMovedOutside(point place)

    function open() {
        if (loader.active)
            return;
        loader.active = true;
        (loader.item as PopupFrame).present();
    }

    function close() {
        if (!loader.active)
            return;
        (loader.item as PopupFrame).visible = false;
        loader.active = false;
    }

    Loader {
        id: loader

        active: false
        sourceComponent: PopupFrame {
            anchorItem: root.anchorItem
            content: root.content
            edge: root.edge
            gap: root.gap
            background: root.color
            radius: root.radius
            arrow: root.arrow
            ownsArrowKeys: root.ownsArrowKeys
            onDismissed: root.close()
            onPointerMovedOutside: place => root.pointerMovedOutside(place)
        }
    }
}
