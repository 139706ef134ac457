import QtQuick
import Orvane

/// A control without looks of its own: presses by pointer, Space, Return and assistive technology,
/// and a ring while the keyboard is on it. A press by pointer doesn't take the focus.
Item {
    id: root

    /// For assistive technology.
    required property string name
    property string toolTip  ///< shown under a resting pointer
    property bool hovers: false  ///< is lit up under the pointer
    property real focusRadius: 5
    property real focusInset: 0  ///< points between the item's edge and the ring
    property alias pressedDown: area.pressed
    property alias containsMouse: area.containsMouse

    signal clicked

    function press() {
        if (enabled)
            clicked();
    }

    function isPress(key: int): bool {
        return key === Qt.Key_Space || key === Qt.Key_Return || key === Qt.Key_Enter;
    }

    activeFocusOnTab: true
    Accessible.role: Accessible.Button
    Accessible.name: name
    Accessible.focusable: true
    Accessible.onPressAction: press()
    Accessible.description: toolTip
    // An accepted override keeps the key from the window's Shortcut.
    Keys.onShortcutOverride: event => event.accepted = isPress(event.key)
    Keys.onPressed: event => {
        event.accepted = isPress(event.key);
        if (event.accepted && !event.isAutoRepeat)
            press();
    }

    HoverEffect {
        visible: root.hovers
        z: -1
    }

    MouseArea {
        id: area

        anchors.fill: parent
        hoverEnabled: true
        onClicked: root.press()
    }

    ToolTipWindow {
        anchorItem: root
        text: root.toolTip
        hovered: area.containsMouse
        pressed: area.pressed
    }

    FocusRing {
        anchors.fill: parent
        anchors.margins: root.focusInset
        radius: root.focusRadius
        visible: root.activeFocus
    }
}
