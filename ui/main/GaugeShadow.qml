import QtQuick
import Orvane

/// The shadow that a gauge's ring casts below itself.
Item {
    id: root

    required property real usage  ///< percent
    required property int lineWidth

    BlurredArc {
        anchors.fill: parent
        lineWidth: root.lineWidth
        colors: [Theme.withOpacity(Theme.gaugeShadow, Theme.gaugeTrack.a)]
        blurRadius: 16
    }

    BlurredArc {
        objectName: "arcShadow"
        anchors.fill: parent
        to: root.usage / 100
        lineWidth: root.lineWidth
        roundCaps: true
        colors: [Theme.gaugeShadow]
        startRotation: -90
        blurRadius: 16
    }
}
