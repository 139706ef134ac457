pragma ComponentBehavior: Bound
import QtQuick
import Orvane

/// A history as a filled line over a grid, with one label beside each grid line, from top to
/// bottom.
Item {
    id: root

    required property list<real> values  ///< oldest first
    required property real minimum  ///< on the bottom edge
    required property real maximum  ///< on the top edge
    required property list<string> gridLabels
    property real labelSize: 9
    readonly property real plotWidth: width - 30  ///< the labels have the rest

    /// The history in words, for assistive technology; `format` makes a value's text.
    function summary(format: var): string {
        if (values.length === 0)
            return qsTr("No values yet", "summary of an empty chart, for assistive technology");
        const range = [values[values.length - 1], Math.min(...values), Math.max(...values)];
        return qsTr("Now %1, lowest %2, highest %3", "summary of a chart, for assistive technology").arg(format(range[0])).arg(format(range[1])).arg(format(range[2]));
    }

    HistoryChart {
        objectName: "chart"
        width: root.plotWidth
        height: root.height
        values: root.values
        minimum: root.minimum
        maximum: root.maximum
        lineColors: [Theme.blue, Theme.purple]
        areaColors: [Theme.withOpacity(Theme.blue, 0.3), Theme.withOpacity(Theme.purple, 0.1)]
        gridLines: root.gridLabels.length
        gridColor: Theme.withOpacity(Theme.gray, 0.2)
    }

    Repeater {
        model: root.gridLabels

        SpokenText {
            required property int index
            required property string modelData

            x: root.plotWidth + 18 - width / 2
            y: root.height * index / Math.max(1, root.gridLabels.length - 1) - height / 2
            text: modelData
            font: Theme.systemFont(root.labelSize)
        }
    }
}
