import QtQuick
import Orvane

/// A small window that follows the size of its content, and that Escape and Ctrl+W close.
Window {
    id: root

    default property alias content: scope.data
    required property real contentWidth
    required property real contentHeight
    property string description  ///< for assistive technology

    signal accepted  ///< Return or Enter was pressed

    function fit() {
        minimumWidth = maximumWidth = width = Theme.paintedLength(contentWidth, Screen.devicePixelRatio);
        minimumHeight = maximumHeight = Theme.paintedLength(contentHeight, Screen.devicePixelRatio);
        height = maximumHeight;
    }

    color: "transparent"
    visible: false
    onContentHeightChanged: fit()
    Component.onCompleted: fit()

    FocusScope {
        id: scope

        anchors.fill: parent
        focus: true
        Accessible.role: Accessible.Dialog
        Accessible.name: root.title
        Accessible.description: root.description
        Accessible.focused: root.activeFocusItem === scope
        Keys.onEscapePressed: root.close()
        Keys.onReturnPressed: root.accepted()
        Keys.onEnterPressed: root.accepted()

        Shortcut {
            sequence: "Ctrl+W"
            onActivated: root.close()
        }

        Rectangle {
            anchors.fill: parent
            color: Theme.windowBackground
        }
    }
}
