import QtQuick
import Orvane

/// The motion of a view while a boost runs: a turn and a pulse that start when `active` becomes
/// true and ease back to rest when it becomes false. A view made while `active` is true stays at
/// rest until the next change.
QtObject {
    id: root

    required property bool active
    /// The view can be seen; nothing moves while it can't.
    property bool visible: true
    property int turnDuration: 1000  ///< milliseconds of one turn
    property int pulseDuration: 500  ///< milliseconds of one way of the pulse
    property real rotation: 0  ///< degrees
    property real pulse: 0  ///< 0 at rest, 1 at the peak

    property bool complete: false
    property bool moving: false
    Component.onCompleted: complete = true

    onActiveChanged: {
        if (!complete)
            return;
        settle.stop();
        if (active) {
            rotation = 0;
            pulse = 0;
            moving = true;
        } else if (moving) {
            moving = false;
            settle.start();
        }
    }

    readonly property NumberAnimation turn: NumberAnimation {
        target: root
        property: "rotation"
        running: root.moving && root.visible && !Motion.reduced
        from: 0
        to: 360
        duration: root.turnDuration
        loops: Animation.Infinite
    }
    readonly property SequentialAnimation beat: SequentialAnimation {
        running: root.moving && root.visible && !Motion.reduced
        loops: Animation.Infinite
        NumberAnimation {
            target: root
            property: "pulse"
            from: 0
            to: 1
            duration: root.pulseDuration
            easing.type: Easing.BezierSpline
            easing.bezierCurve: Motion.easeInOut
        }
        NumberAnimation {
            target: root
            property: "pulse"
            from: 1
            to: 0
            duration: root.pulseDuration
            easing.type: Easing.BezierSpline
            easing.bezierCurve: Motion.easeInOut
        }
    }
    readonly property NumberAnimation settle: NumberAnimation {
        target: root
        properties: "rotation,pulse"
        to: 0
        duration: Motion.reduced ? 0 : 300
        easing.type: Easing.BezierSpline
        easing.bezierCurve: Motion.easeOut
    }
}
