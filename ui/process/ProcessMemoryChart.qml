import QtQuick
import Orvane

/// An application's memory over time, scaled between its smallest and its largest value.
Item {
    id: root

    required property list<real> values  ///< MB, oldest first
    required property real peak
    required property real minimum

    implicitHeight: 80
    Accessible.role: Accessible.Chart
    Accessible.name: qsTr("Memory Usage Over Time")

    SmoothRectangle {
        anchors.fill: parent
        radius: 8
        color: Theme.chartPanel
    }

    HistoryPlot {
        x: 4
        y: 8
        width: root.width - 8
        height: root.height - 16
        values: root.values
        minimum: root.minimum
        maximum: root.peak
        gridLabels: Array.from(ProcessText.gridLabels(root.peak, root.minimum))
        labelSize: 8
    }
}
