pragma ComponentBehavior: Bound
import QtQuick
import Orvane

/// Highlights spread evenly on a ring, each bright at its head and fading toward its tail. Turn the
/// item to make them circle.
Item {
    id: root

    required property real lineWidth
    required property int count
    required property real share  ///< of the circle, each
    /// Where the head of an arc lies whose tail is at three o'clock, as a share of the width. The
    /// gradient runs between these two points, not to the edges of the round ends: else the tail
    /// would end while it is still seen.
    readonly property real head: (1 + Math.cos(2 * Math.PI * share)) / 2

    Accessible.role: Accessible.AlertMessage
    Accessible.name: qsTr("Boosting...", "while memory is being freed")

    Repeater {
        model: root.count

        GradientArc {
            required property int index

            anchors.fill: parent
            smooth: true
            to: root.share
            lineWidth: root.lineWidth
            roundCaps: true
            colors: [Qt.rgba(1, 1, 1, 0.9), Qt.rgba(1, 1, 1, 0)]
            gradientStart: Qt.point(root.head, 0)
            gradientEnd: Qt.point(1, 0)
            rotation: 360 / root.count * index
        }
    }
}
