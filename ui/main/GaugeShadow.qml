import QtQuick
import Orvane

/// The shadow that a gauge's ring and figure cast below themselves.
DropShadow {
    id: root

    required property AnimatedCircularGauge gauge

    source: gauge
    casters: [gauge.track, gauge.arc, gauge.percentage]
    shapes: gauge.percentage.text + gauge.percentage.font
    moved: gauge.arc.to * Math.PI * gauge.width
    margin: gauge.lineWidth
    color: Theme.gaugeShadow
    blurRadius: 16
}
