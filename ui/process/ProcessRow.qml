import QtQuick
import Orvane

/// One application of the list.
Item {
    id: root

    required property MemoryModel memoryModel
    required property WindowController windows
    required property var record  ///< a ProcessRecord
    required property string memoryText
    required property bool isLarge
    required property bool isSelected
    readonly property alias showingInfo: details.isOpen
    readonly property alias hasKeyboard: info.activeFocus

    signal chosen
    /// A context menu is wanted at a point of the row.
    signal menuRequested(real x, real y)

    implicitHeight: 56
    Accessible.role: Accessible.ListItem
    Accessible.name: record.name + ", " + memoryText
    Accessible.selectable: true
    Accessible.selected: isSelected
    Accessible.focusable: false  // its keys are the window's
    Accessible.focused: isSelected && Window.activeFocusItem?.activeFocusOnTab === false
    Accessible.onPressAction: chosen()

    SmoothRectangle {
        anchors.fill: parent
        visible: root.isSelected
        radius: 10
        gradientColors: [Theme.withOpacity(Theme.blue, 0.2), Theme.withOpacity(Theme.purple, 0.2)]
    }

    // Half of the line lies outside of the row.
    SmoothRectangle {
        anchors.fill: parent
        anchors.margins: -1
        visible: root.isSelected
        radius: 11
        borderWidth: 2
        borderColor: Theme.rowOutline
    }

    MouseArea {
        anchors.fill: parent
        acceptedButtons: Qt.LeftButton | Qt.RightButton
        onPressed: mouse => {
            if (mouse.button === Qt.RightButton)
                root.menuRequested(mouse.x, mouse.y);
        }
        onClicked: mouse => {
            if (mouse.button === Qt.LeftButton)
                root.chosen();
        }
    }

    ApplicationIcon {
        id: icon

        x: 10
        anchors.verticalCenter: parent.verticalCenter
        source: root.record.iconSource
        side: 36
    }

    Label {
        id: title

        objectName: "name"
        anchors.left: icon.right
        anchors.leftMargin: 12
        anchors.right: info.left
        anchors.rightMargin: 20
        anchors.verticalCenter: parent.verticalCenter
        horizontalAlignment: Text.AlignLeft  // for names written from right to left too
        text: root.record.name
        font: Theme.systemFont(13, Font.Medium)
        color: Theme.label
        elide: Text.ElideRight
        maximumLineCount: 1
    }

    SymbolButton {
        id: info

        objectName: "info"
        anchors.right: memory.left
        anchors.rightMargin: 8
        anchors.verticalCenter: parent.verticalCenter
        symbol: "info.circle.fill"
        pointSize: 14
        color: Theme.secondaryLabel
        name: qsTr("Show details of %1", "name of a row's button, for assistive technology").arg(root.record.name)
        toolTip: qsTr("Show process details", "tooltip of a row's button")
        onClicked: details.open()
    }

    Label {
        id: memory

        objectName: "memory"
        anchors.right: parent.right
        anchors.rightMargin: 10
        anchors.baseline: title.baseline
        // The button before it is sharp on whole points.
        width: Math.ceil(implicitWidth)
        horizontalAlignment: Text.AlignRight
        text: root.memoryText
        font: Theme.monospacedFont(13, Font.Medium)
        color: root.isLarge ? Theme.orange : Theme.secondaryLabel
    }

    PopupWindow {
        id: details

        anchorItem: info
        title: info.name
        edge: PopupController.Trailing
        gap: 0
        arrow: 9
        color: Theme.processPopover
        radius: Theme.windowRadius
        content: ProcessInfoPopover {
            model: root.memoryModel
            windows: root.windows
            record: root.record
            // An open popup lies above the file manager and holds the keyboard.
            onRevealed: Qt.callLater(details.close)
        }
    }
}
