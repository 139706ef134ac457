pragma ComponentBehavior: Bound
import QtQuick
import Orvane

/// The overview's details: the chart, a bar for each counter and the way to the applications.
Column {
    id: root

    required property MemoryModel model

    signal processesRequested

    spacing: 12

    MemoryChartView {
        width: root.width
        model: root.model
    }

    Column {
        x: 20
        width: root.width - 40
        spacing: 10

        CounterRows {
            CompactMemoryBar {
                required property var modelData

                objectName: modelData.bytes + "Bar"
                width: root.width - 40
                label: modelData.name
                bytes: root.model[modelData.bytes]
                total: root.model.totalBytes
                color: Theme[modelData.color]
                isPart: modelData.isPart
            }
        }
    }

    TopConsumersShortcut {
        objectName: "topConsumers"
        x: 20
        width: root.width - 40
        visible: text !== ""
        text: root.model.topConsumersText
        onClicked: root.processesRequested()
    }
}
