import QtQuick
import Orvane

/// Which application the details are about.
Item {
    id: root

    required property var record  ///< a ProcessRecord

    implicitHeight: Math.max(icon.height, texts.height) + 4

    ApplicationIcon {
        id: icon

        y: (root.height - 4 - height) / 2
        source: root.record.iconSource
        side: 40
        symbolSize: 15
    }

    Column {
        id: texts

        anchors.verticalCenter: icon.verticalCenter
        x: icon.width + 10
        width: root.width - x
        spacing: 3

        SpokenText {
            objectName: "detailsName"
            width: parent.width
            horizontalAlignment: Text.AlignLeft  // for names written from right to left too
            text: root.record.name
            font: Theme.systemFont(15, Font.DemiBold)
            color: Theme.label
            wrapMode: Text.Wrap
            maximumLineCount: 2
            elide: Text.ElideRight
        }

        SpokenText {
            width: parent.width
            text: ProcessText.identity(root.record)
            elide: Text.ElideRight
            maximumLineCount: 1
        }
    }
}
