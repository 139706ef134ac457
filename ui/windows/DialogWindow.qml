import QtQuick
import Orvane

/// A small window that Escape and Ctrl+W close.
ContentWindow {
    id: root

    default property alias content: scope.data
    property string description  ///< for assistive technology

    signal accepted  ///< Return or Enter was pressed

    flags: Qt.Dialog | Qt.CustomizeWindowHint | Qt.WindowTitleHint | Qt.WindowCloseButtonHint

    FocusScope {
        id: scope

        anchors.fill: parent
        focus: true
        Accessible.role: Accessible.Dialog
        Accessible.name: root.title
        Accessible.description: root.description
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
