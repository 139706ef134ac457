pragma ComponentBehavior: Bound
import QtQuick
import Orvane

/// One row of a menu.
Item {
    id: root

    required property int index
    required property MenuEntry entry
    required property bool indented  ///< leaves room for check marks
    required property bool current
    readonly property bool choosable: entry.enabled && !entry.isDivider && !entry.isTitle
    readonly property color textColor: {
        if (entry.isTitle || !entry.enabled)
            return Theme.secondaryLabel;
        if (current)
            return "white";
        return entry.destructive ? Theme.red : Theme.label;
    }

    signal hovered
    signal unhovered
    signal pressed

    objectName: entry.text
    implicitWidth: entry.isDivider ? 0 : label.x + label.implicitWidth + 14 + (keys.text ? keys.implicitWidth + 24 : 0)
    implicitHeight: entry.isDivider ? 9 : 22

    Accessible.ignored: entry.isDivider
    Accessible.role: entry.isTitle ? Accessible.Heading : Accessible.MenuItem
    Accessible.name: entry.text
    Accessible.checkable: entry.checkable
    Accessible.checked: entry.checked
    Accessible.focusable: false
    Accessible.focused: current
    Accessible.onPressAction: root.pressed()

    SmoothRectangle {
        anchors.fill: parent
        visible: root.current && root.choosable
        radius: 4
        color: root.entry.destructive ? Theme.red : Theme.blue
    }

    Divider {
        x: 9
        width: root.width - 18
        anchors.verticalCenter: parent.verticalCenter
        visible: root.entry.isDivider
    }

    Symbol {
        x: 6
        anchors.verticalCenter: parent.verticalCenter
        visible: root.entry.checked
        name: "checkmark"
        pointSize: 10
        color: root.textColor
    }

    Text {
        id: label

        x: root.indented ? 23 : 9
        anchors.verticalCenter: parent.verticalCenter
        text: root.entry.text
        textFormat: Text.PlainText
        font: root.entry.isTitle ? Theme.subheadline : Theme.body
        color: root.textColor
        Accessible.ignored: true
    }

    Text {
        id: keys

        anchors.right: parent.right
        anchors.rightMargin: 9
        anchors.verticalCenter: parent.verticalCenter
        text: root.entry.shortcut
        font: Theme.body
        color: root.current ? root.textColor : Theme.secondaryLabel
        Accessible.ignored: true
    }

    MouseArea {
        anchors.fill: parent
        enabled: root.choosable
        hoverEnabled: true
        onEntered: root.hovered()
        onPositionChanged: root.hovered()
        onExited: root.unhovered()
        onClicked: root.pressed()
    }
}
