pragma ComponentBehavior: Bound
import QtQuick
import Orvane

/// The details of one application. Its figures are those of its record; its history is the
/// model's, read again with every change.
FocusScope {
    id: root

    required property MemoryModel model
    required property WindowController windows
    required property var record  ///< a ProcessRecord

    property var history: model.processHistory(record.pid)  ///< a ProcessHistory

    signal revealed  ///< the executable, in the file manager

    function readHistory() {
        history = model.processHistory(record.pid);
    }

    implicitWidth: 360
    implicitHeight: column.height + 32
    Accessible.role: Accessible.Pane
    Accessible.name: qsTr("Details of %1", "name of an application's details, for assistive technology").arg(record.name)
    onRecordChanged: readHistory()

    Connections {
        target: root.model
        function onChanged() {
            root.readHistory();
        }
    }

    Column {
        id: column

        x: 16
        y: 16
        width: root.implicitWidth - 32
        spacing: 14

        ProcessInfoHeader {
            width: column.width
            record: root.record
        }

        ProcessInfoHistory {
            objectName: "historySection"
            visible: root.history.values.length >= 2
            history: root.history
            current: root.record.memoryBytes / 1048576
        }

        ProcessInfoSection {
            SpokenText {
                text: qsTr("Memory Details", "heading above figures of an application")
                font: Theme.systemFont(11, Font.DemiBold)
                color: Theme.label
            }

            Column {
                width: column.width
                spacing: 8

                MemoryInfoRow {
                    icon: "square.fill"
                    iconColor: Theme.blue
                    label: qsTr("Physical Memory", "caption of a figure of an application")
                    value: Format.bytesInMB(root.record.privateBytes, 1)
                }

                MemoryInfoRow {
                    icon: "square.fill"
                    iconColor: Theme.purple
                    label: qsTr("Virtual Memory", "caption of a figure of an application")
                    value: Format.bytesInGB(root.record.virtualBytes, 2)
                }
            }
        }

        ProcessInfoSection {
            objectName: "threadSection"
            visible: root.record.threadCount >= 1

            Row {
                spacing: 8

                Symbol {
                    anchors.verticalCenter: parent.verticalCenter
                    name: "arrow.triangle.branch"
                    pointSize: 11
                    color: Theme.green
                }

                SpokenText {
                    anchors.verticalCenter: parent.verticalCenter
                    text: qsTr("Process Details", "heading above figures of an application")
                    font: Theme.systemFont(11, Font.DemiBold)
                    color: Theme.label
                }
            }

            MemoryInfoRow {
                icon: "number"
                iconColor: Theme.green
                label: qsTr("Active Threads", "caption of a figure of an application")
                value: root.record.threadCount
            }
        }

        ProcessInfoLocation {
            objectName: "locationSection"
            visible: root.record.path !== ""
            record: root.record
            windows: root.windows
            onRevealed: root.revealed()
        }
    }
}
