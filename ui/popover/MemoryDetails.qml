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

    MenuMemoryRow {
        width: root.width - 24
        label: "Free"
        bytes: root.model.freeBytes
        total: root.model.totalBytes
        color: Theme.green
    }
    MenuMemoryRow {
        width: root.width - 24
        label: "Active"
        bytes: root.model.activeBytes
        total: root.model.totalBytes
        color: Theme.blue
    }
    MenuMemoryRow {
        width: root.width - 24
        label: "Inactive"
        bytes: root.model.inactiveBytes
        total: root.model.totalBytes
        color: Theme.yellow
    }
    MenuMemoryRow {
        width: root.width - 24
        label: "Wired"
        bytes: root.model.wiredBytes
        total: root.model.totalBytes
        color: Theme.red
    }
    MenuMemoryRow {
        width: root.width - 24
        label: "Compressed"
        bytes: root.model.compressedBytes
        total: root.model.totalBytes
        color: Theme.purple
    }
}
