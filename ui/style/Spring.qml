import QtQuick
import Orvane

/// An animation that moves as a spring does, in Behavior and Transition.
NumberAnimation {
    id: root

    property real response: 0.3  ///< seconds of one undamped oscillation
    property real dampingFraction: 0.825

    duration: Motion.reduced ? 0 : Motion.springDuration(response, dampingFraction)
    easing.type: Easing.BezierSpline
    easing.bezierCurve: Motion.springCurve(response, dampingFraction)
}
