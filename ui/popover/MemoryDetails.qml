pragma ComponentBehavior: Bound
import QtQuick
import Orvane

/// One row a memory category.
Column {
    id: root

    required property MemoryModel model

    topPadding: 8
    bottomPadding: 12
    leftPadding: 12
    rightPadding: 12
    spacing: 4

    CounterRows {
        MenuMemoryRow {
            required property var modelData

            width: root.width - 24
            label: modelData.name
            bytes: root.model[modelData.bytes]
            total: root.model.totalBytes
            color: Theme[modelData.color]
        }
    }
}
