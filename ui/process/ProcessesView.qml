import QtQuick
import Orvane

/// The applications that use most memory: their list, and what can be done with the selected one.
Item {
    id: root

    required property MemoryModel model
    required property WindowController windows

    Accessible.role: Accessible.Pane
    Accessible.name: qsTr("Processes", "title of a tab")

    ProcessHeader {
        id: header

        width: root.width
        model: root.model
    }

    ProcessList {
        objectName: "list"
        anchors.top: header.bottom
        anchors.bottom: bar.top
        width: root.width
        model: root.model
        windows: root.windows
        onKillRequested: record => confirmation.request(record)
    }

    Loader {
        id: bar

        anchors.bottom: parent.bottom
        width: root.width
        height: active ? implicitHeight : 0
        active: root.model.hasSelection
        sourceComponent: SelectionBar {
            record: root.model.selection
            onCancelled: root.model.clearSelection()
            onKillRequested: confirmation.request(root.model.selection)
        }
    }

    KillConfirmation {
        id: confirmation

        objectName: "confirmation"
        onConfirmed: record => {
            root.model.killProcess(record);
            root.model.clearSelection();
        }
    }
}
