import QtQuick
import Orvane

/// The recent course of memory usage, on a card.
Item {
    id: root

    required property MemoryModel model

    implicitHeight: column.height + 24
    Accessible.role: Accessible.Chart
    Accessible.name: title.text
    Accessible.description: plot.summary(value => Format.percent(value, 1))

    SmoothRectangle {
        objectName: "chartCard"
        x: 20
        width: root.width - 40
        height: root.height
        radius: 10
        color: Theme.material

        Column {
            id: column

            x: 20
            y: 12
            width: parent.width - 40
            spacing: 8

            Label {
                id: title

                text: qsTr("Memory Usage History", "title of a chart")
                font: Theme.systemFont(11, Font.Medium)
            }

            HistoryPlot {
                id: plot

                objectName: "plot"
                width: parent.width
                height: 100
                values: root.model.usageHistory
                minimum: 0
                maximum: 100
                gridLabels: ["100%", "75%", "50%", "25%", "0%"]
            }
        }
    }
}
