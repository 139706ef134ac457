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
    property string title  ///< for assistive technology
    property int edge: PopupController.Below
    property real gap: 4  ///< points between the item and the window
    property color color: Theme.menuBackground
    property real radius: Theme.windowRadius > 0 ? 8 : 0
    property real arrow: 0  ///< points of an arrow at the item, for the trailing edge; 0 = none
    /// Up and Down are the window's own, whatever else takes them in the program.
    property bool ownsArrowKeys: false
    readonly property bool isOpen: loader.active

    /// The pointer is at this place of the screen, outside of the open window.
    signal pointerMovedOutside(point place)
    /// The pointer moves, and lets go, with a button that went down before the window opened.
    signal dragged(point place)
    signal dropped(point place)

    function open() {
        loader.active = true;
    }

    function close() {
        if (!loader.active)
            return;
        (loader.item as Window).visible = false;
        loader.active = false;
    }

    Loader {
        id: loader

        active: false
        sourceComponent: Window {
            id: window

            readonly property bool ownsArrowKeys: root.ownsArrowKeys
            property point anchorPlace  ///< on the screen, when the window was placed

            function fit() {
                anchorPlace = root.anchorItem.mapToGlobal(0, 0);
                controller.place(body.implicitWidth + root.arrow, body.implicitHeight, root.edge, root.gap);
                const centre = root.anchorItem.mapToGlobal(root.anchorItem.width / 2, root.anchorItem.height / 2);
                bubble.arrowOnRight = root.arrow > 0 && centre.x > x + width / 2;
                bubble.arrowTip = centre.y - y - Theme.shadowMargin;
            }

            title: root.title
            color: "transparent"
            visible: false
            Component.onCompleted: {
                fit();
                visible = true;
                scope.forceActiveFocus();
            }
            // The window system may close it too.
            onVisibleChanged: if (!visible)
                root.close()

            PopupController {
                id: controller

                window: window
                anchor: root.anchorItem
                margin: Theme.shadowMargin
                onDismissed: root.close()
                onPointerMovedOutside: place => root.pointerMovedOutside(place)
                onDragged: place => root.dragged(place)
                onDropped: place => root.dropped(place)
            }

            // A list that is rebuilt or scrolled moves its rows.
            Connections {
                target: window.visible ? root.anchorItem.Window.window : null

                function onFrameSwapped() {
                    if (root.anchorItem.mapToGlobal(0, 0) === window.anchorPlace)
                        return;
                    if (controller.isAnchorInSight())
                        window.fit();
                    else
                        root.close();
                }
            }

            WindowShadow {
                anchors.fill: scope
                anchors.leftMargin: body.anchors.leftMargin
                anchors.rightMargin: body.anchors.rightMargin
                radius: root.radius
            }

            Bubble {
                id: bubble

                anchors.fill: scope
                radius: root.radius
                color: root.color
                borderColor: Theme.windowOutline
                arrow: root.arrow
                cutsWindow: Theme.windowRadius === 0
            }

            FocusScope {
                id: scope

                anchors.fill: parent
                anchors.margins: Theme.shadowMargin
                focus: true
                Keys.onEscapePressed: root.close()

                Loader {
                    id: body

                    anchors.fill: parent
                    anchors.leftMargin: bubble.arrowOnRight ? 0 : root.arrow
                    anchors.rightMargin: bubble.arrowOnRight ? root.arrow : 0
                    focus: true
                    sourceComponent: root.content
                    onImplicitHeightChanged: if (window.visible)
                        window.fit()
                }
            }
        }
    }
}
