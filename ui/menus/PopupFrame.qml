import QtQuick
import Orvane

/// The window of a PopupWindow.
Window {
    id: root

    required property Item anchorItem
    required property Component content
    required property int edge
    required property real gap
    required property color background
    required property real radius
    required property real arrow
    required property bool ownsArrowKeys
    readonly property Item contentItem: loader.item as Item
    property point anchorPlace  ///< on the screen, when the window was placed

    signal dismissed
    signal pointerMovedOutside(point place)

    function present() {
        fit();
        visible = true;
        scope.forceActiveFocus();
    }

    function fit() {
        if (!loader.item)
            return;
        anchorPlace = anchorItem.mapToGlobal(0, 0);
        controller.place(loader.implicitWidth + arrow, loader.implicitHeight, root.edge, root.gap);
        const centre = anchorItem.mapToGlobal(anchorItem.width / 2, anchorItem.height / 2);
        bubble.arrowOnRight = arrow > 0 && centre.x > x + width / 2;
        bubble.arrowTip = centre.y - y;
    }

    // On X11 the controller does what makes a popup; a window of that type is unknown to assistive
    // technology.
    flags: (Qt.platform.pluginName === "xcb" ? Qt.Tool | Qt.BypassWindowManagerHint | Qt.WindowStaysOnTopHint : Qt.Popup) | Qt.FramelessWindowHint | Qt.NoDropShadowWindowHint
    color: "transparent"
    visible: false

    // The window system may close it too.
    onVisibleChanged: if (!visible)
        dismissed()

    PopupController {
        id: controller

        window: root
        anchor: root.anchorItem
        onDismissed: root.dismissed()
        onPointerMovedOutside: place => root.pointerMovedOutside(place)
    }

    // A list that is rebuilt or scrolled moves its rows.
    Connections {
        target: root.visible ? root.anchorItem.Window.window : null

        function onFrameSwapped() {
            if (root.anchorItem.mapToGlobal(0, 0) === root.anchorPlace)
                return;
            if (controller.isAnchorInSight())
                root.fit();
            else
                root.dismissed();
        }
    }

    Bubble {
        id: bubble

        anchors.fill: parent
        radius: root.radius
        color: root.background
        borderColor: Theme.windowOutline
        arrow: root.arrow
        cutsWindow: Theme.windowRadius === 0
    }

    FocusScope {
        id: scope

        anchors.fill: parent
        focus: true
        Keys.onEscapePressed: root.dismissed()

        Loader {
            id: loader

            anchors.fill: parent
            anchors.leftMargin: bubble.arrowOnRight ? 0 : root.arrow
            anchors.rightMargin: bubble.arrowOnRight ? root.arrow : 0
            focus: true
            sourceComponent: root.content
            onImplicitHeightChanged: if (root.visible)
                root.fit()
        }
    }
}
