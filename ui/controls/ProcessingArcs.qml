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
    // The left and right edges of an arc that starts at three o'clock, its round ends included.
    readonly property real headLeft: width / 2 * (1 + Math.cos(2 * Math.PI * share)) - lineWidth / 2
    readonly property real tailRight: width + lineWidth / 2

    Accessible.role: Accessible.AlertMessage
    Accessible.name: qsTr("Boosting...")

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
            gradientStart: Qt.point(root.headLeft / width, 0)
            gradientEnd: Qt.point(root.tailRight / width, 0)
            rotation: 360 / root.count * index
        }
    }
}
