import QtQuick
import Orvane

/// An application's memory over time, scaled between its smallest and its largest value.
Item {
    id: root

    required property var history  ///< a ProcessHistory

    implicitHeight: 80
    Accessible.role: Accessible.Chart
    Accessible.name: qsTr("Memory Usage Over Time", "title of a chart of one application")
    Accessible.description: plot.summary(value => Format.figureInMB(value, 0))

    SmoothRectangle {
        anchors.fill: parent
        radius: 8
        color: Theme.chartPanel
    }

    HistoryPlot {
        id: plot

        x: 4
        y: 8
        width: root.width - 8
        height: root.height - 16
        values: root.history.values
        minimum: root.history.minimum
        maximum: root.history.peak
        gridLabels: Array.from(ProcessText.gridLabels(root.history.peak, root.history.minimum))
        labelSize: 8
    }
}
