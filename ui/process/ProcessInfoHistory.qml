pragma ComponentBehavior: Bound
import QtQuick
import Orvane

/// The course of an application's memory, with its figures.
ProcessInfoSection {
    id: root

    required property var history  ///< a ProcessHistory
    required property real current  ///< MB

    contentSpacing: 8

    Item {
        width: root.width
        height: heading.height

        SpokenText {
            id: heading

            text: qsTr("Memory Usage Over Time", "title of a chart of one application")
            font: Theme.systemFont(11, Font.DemiBold)
            color: Theme.label
        }

        SpokenText {
            objectName: "duration"
            anchors.right: parent.right
            anchors.verticalCenter: heading.verticalCenter
            text: ProcessText.historyDuration(root.history.values.length)
            visible: text !== ""
        }
    }

    ProcessMemoryChart {
        objectName: "processChart"
        width: root.width
        history: root.history
    }

    Row {
        x: 4
        spacing: 16

        Repeater {
            model: [
                {
                    caption: qsTr("Current", "caption of an application's memory now"),
                    figure: root.current,
                    color: Theme.blue
                },
                {
                    caption: qsTr("Average", "caption of an application's average memory"),
                    figure: root.history.average,
                    color: Theme.label
                },
                {
                    caption: qsTr("Peak", "caption of an application's greatest memory"),
                    figure: root.history.peak,
                    color: Theme.orange
                }
            ]
            delegate: Column {
                id: entry

                required property var modelData

                spacing: 2
                Accessible.role: Accessible.StaticText
                Accessible.name: modelData.caption + ": " + figure.text

                Label {
                    text: entry.modelData.caption
                }

                Label {
                    id: figure

                    text: Format.figureInMB(entry.modelData.figure, 0)
                    font: Theme.systemFont(10, Font.DemiBold)
                    color: entry.modelData.color
                }
            }
        }
    }
}
