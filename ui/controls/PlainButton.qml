import QtQuick
import Orvane

/// A control without looks of its own: presses by pointer, Space, Return and assistive technology,
/// and a ring while the keyboard is on it. A press by pointer doesn't take the focus.
Item {
    id: root

    required property string name  ///< for assistive technology
    property string description  ///< the same
    property bool pressesAtOnce: false  ///< when the pointer's button goes down, as menus open
    property var expanded  ///< of what opens and closes something: whether that is open
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
    Accessible.checkable: expanded !== undefined
    Accessible.checked: expanded === true
    Accessible.onPressAction: press()
    Accessible.description: description
    // An accepted override keeps the key from the window's Shortcut.
    Keys.onShortcutOverride: event => event.accepted = isPress(event.key)
    Keys.onPressed: event => {
        event.accepted = isPress(event.key);
        if (event.accepted && !event.isAutoRepeat)
            press();
    }

    MouseArea {
        id: area

        anchors.fill: parent
        hoverEnabled: true
        onPressed: if (root.pressesAtOnce)
            root.press()
        onClicked: if (!root.pressesAtOnce)
            root.press()
    }

    FocusRing {
        anchors.fill: parent
        anchors.margins: root.focusInset
        radius: root.focusRadius
        visible: root.activeFocus
    }
}
