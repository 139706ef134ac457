import QtQuick
import Orvane

/// The shadow that a gauge's ring and figure cast below themselves.
Item {
    id: root

    required property AnimatedCircularGauge gauge
    readonly property real blurRadius: 16

    GradientArc {
        anchors.fill: parent
        lineWidth: root.gauge.lineWidth
        colors: [Theme.withOpacity(Theme.gaugeShadow, Theme.gaugeTrack.a)]
        blurRadius: root.blurRadius
        detail: 1 / 2
    }

    GradientArc {
        objectName: "arcShadow"
        anchors.fill: parent
        to: root.gauge.arcEnd
        lineWidth: root.gauge.lineWidth
        roundCaps: true
        colors: [Theme.gaugeShadow]
        startRotation: -90
        blurRadius: root.blurRadius
        detail: 1 / 2
    }

    GradientText {
        anchors.horizontalCenter: parent.horizontalCenter
        y: root.gauge.percentageY
        text: root.gauge.percentage.text
        font: root.gauge.percentage.font
        maximumWidth: root.gauge.percentage.maximumWidth
        colors: [Theme.gaugeShadow]
        blurRadius: root.blurRadius
        detail: 1 / 2
    }
}
