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

        CompactMemoryBar {
            objectName: "freeBar"
            width: parent.width
            label: qsTr("Free")
            bytes: root.model.freeBytes
            total: root.model.totalBytes
            barColor: Theme.green
        }

        CompactMemoryBar {
            width: parent.width
            label: qsTr("Active")
            bytes: root.model.activeBytes
            total: root.model.totalBytes
            barColor: Theme.blue
        }

        CompactMemoryBar {
            width: parent.width
            label: qsTr("Inactive")
            bytes: root.model.inactiveBytes
            total: root.model.totalBytes
            barColor: Theme.yellow
        }

        CompactMemoryBar {
            width: parent.width
            label: qsTr("Wired")
            bytes: root.model.wiredBytes
            total: root.model.totalBytes
            barColor: Theme.red
        }

        CompactMemoryBar {
            objectName: "compressedBar"
            width: parent.width
            label: qsTr("Compressed")
            bytes: root.model.compressedBytes
            total: root.model.totalBytes
            barColor: Theme.purple
            trackColor: Theme.compressedTrack
            showsPercentage: false
            animated: false
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
