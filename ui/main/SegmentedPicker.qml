pragma ComponentBehavior: Bound
import QtQuick
import Orvane

/// A choice of one of a few words side by side. Keys: Left, Right, Home and End.
Item {
    id: root

    required property string name  ///< for assistive technology
    required property list<string> segments
    required property int currentIndex
    readonly property real segmentWidth: (width - 2 * inset) / segments.length
    readonly property real inset: 2

    /// The user chose another segment.
    signal chosen(int index)

    function choose(index) {
        const wanted = Math.max(0, Math.min(segments.length - 1, index));
        if (wanted !== currentIndex)
            chosen(wanted);
    }

    implicitHeight: 24
    activeFocusOnTab: true
    Keys.onLeftPressed: choose(currentIndex - 1)
    Keys.onRightPressed: choose(currentIndex + 1)
    Keys.onPressed: event => {
        event.accepted = event.key === Qt.Key_Home || event.key === Qt.Key_End;
        if (event.accepted)
            choose(event.key === Qt.Key_Home ? 0 : segments.length - 1);
    }

    SmoothRectangle {
        anchors.fill: parent
        radius: 6
        color: Theme.pickerTrack
    }

    RectangleShadow {
        anchors.fill: selection
        radius: selection.radius
        blurRadius: 2
        drop: 1
        color: Theme.pickerShadow
    }

    SmoothRectangle {
        id: selection

        objectName: "selection"
        x: root.inset + root.currentIndex * root.segmentWidth
        y: root.inset
        width: root.segmentWidth
        height: root.height - 2 * root.inset
        radius: 5
        color: Theme.pickerSelection
    }

    // The keyboard is on the picker itself, as assistive technology has it on the chosen tab.
    Item {
        anchors.fill: parent
        Accessible.role: Accessible.PageTabList
        Accessible.name: root.name

        Repeater {
            model: root.segments

            Item {
                id: segment

                required property int index
                required property string modelData
                readonly property bool selected: index === root.currentIndex

                x: root.inset + index * root.segmentWidth
                width: root.segmentWidth
                height: root.height
                Accessible.role: Accessible.PageTab
                Accessible.name: modelData
                Accessible.focusable: false
                Accessible.focused: selected && root.activeFocus
                Accessible.selectable: true
                Accessible.selected: selected
                Accessible.onPressAction: root.choose(index)

                Label {
                    anchors.centerIn: parent
                    text: segment.modelData
                    font: Theme.systemFont(12, segment.selected ? Font.DemiBold : Font.Normal)
                    color: segment.selected || area.containsMouse ? Theme.label : Theme.secondaryLabel
                }

                MouseArea {
                    id: area

                    anchors.fill: parent
                    hoverEnabled: true
                    onPressed: root.choose(segment.index)
                }
            }
        }
    }

    FocusRing {
        anchors.fill: parent
        anchors.margins: -2
        radius: 8
        visible: root.activeFocus
    }
}
