import QtQuick
import Orvane

/// Content that scrolls up and down by wheel, touch and Page keys, with an indicator while it
/// moves or the pointer is on it.
Flickable {
    id: root

    /// How far down `contentY` may go.
    readonly property real furthest: Math.max(0, contentHeight - height)
    property list<color> backdrop  ///< colours of the window behind; empty = hard edges
    property bool fadesBelow: false
    property real glidingY: 0  ///< `contentY` while it glides, between device pixels too

    /// Scrolls, gently, until the content's point `y` lies on the bottom edge.
    function scrollToBottom(y) {
        glideTo(y - height);
    }

    /// Scrolls, gently, until `item` lies in the middle, as far as the content allows.
    function scrollToCentre(item) {
        glideTo(item.mapToItem(contentItem, 0, item.height / 2).y - height / 2);
    }

    function glideTo(y) {
        glide.from = contentY;
        glide.to = onPixel(Math.max(0, Math.min(furthest, y)));
        glide.restart();
    }

    /// Scrolls as little as needed to see all of `item`.
    function reveal(item) {
        const top = item.mapToItem(contentItem, 0, 0).y;
        const margin = 8;
        const wanted = Math.max(Math.min(contentY, top - margin), top + item.height + margin - height);
        contentY = onPixel(Math.max(0, Math.min(furthest, wanted)));
    }

    function scrollBy(distance) {
        glide.stop();
        contentY = onPixel(Math.max(0, Math.min(furthest, contentY + distance)));
    }

    function onPixel(y) {
        return Math.round(y * Screen.devicePixelRatio) / Screen.devicePixelRatio;
    }

    function contains(item) {
        for (let ancestor = item; ancestor; ancestor = ancestor.parent)
            if (ancestor === contentItem)
                return true;
        return false;
    }

    interactive: false
    clip: true
    boundsBehavior: Flickable.StopAtBounds
    onGlidingYChanged: contentY = onPixel(glidingY)
    onContentYChanged: indicator.show()
    onContentHeightChanged: if (contentY > furthest)
        contentY = furthest
    Keys.onPressed: event => {
        const distance = {
            [Qt.Key_PageUp]: -height,
            [Qt.Key_PageDown]: height
        }[event.key];
        event.accepted = distance !== undefined && furthest > 0;
        if (event.accepted)
            scrollBy(distance * 0.9);
    }

    WheelHandler {
        acceptedDevices: PointerDevice.Mouse | PointerDevice.TouchPad
        onWheel: event => root.scrollBy(-(event.pixelDelta.y || event.angleDelta.y / 2))
    }

    DragHandler {
        id: drag

        property real last: 0

        acceptedDevices: PointerDevice.TouchScreen
        target: null
        onActiveChanged: last = 0
        onTranslationChanged: {
            root.scrollBy(last - translation.y);
            last = translation.y;
        }
    }

    Connections {
        target: root.Window.window
        function onActiveFocusItemChanged() {
            const item = root.Window.activeFocusItem;
            if (item && root.contains(item))
                root.reveal(item);
        }
    }

    NumberAnimation {
        id: glide

        target: root
        property: "glidingY"
        duration: Motion.reduced ? 0 : 300
        easing.type: Easing.BezierSpline
        easing.bezierCurve: Motion.easeInOut
    }

    EdgeFade {
        parent: root
        visible: opacity > 0
        width: root.width
        height: 14
        colors: root.backdrop
        opacity: root.backdrop.length > 0 ? Math.min(1, root.contentY / height) : 0
    }

    EdgeFade {
        parent: root
        visible: opacity > 0
        y: root.height - height
        width: root.width
        height: 14
        colors: root.backdrop
        opaqueBelow: true
        opacity: root.fadesBelow ? Math.min(1, (root.furthest - root.contentY) / height) : 0
    }

    ScrollIndicator {
        id: indicator

        parent: root
        area: root
        onDragged: share => root.contentY = root.onPixel(share * root.furthest)
    }
}
