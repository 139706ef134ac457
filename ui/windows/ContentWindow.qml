import QtQuick

/// A window that follows the size of its content, and can have no other.
Window {
    id: root

    required property real contentWidth
    required property real contentHeight
    property bool fixed: true  ///< whether the desktop is told so

    function fit() {
        if (fixed) {
            minimumWidth = maximumWidth = Math.round(contentWidth);
            minimumHeight = maximumHeight = Math.round(contentHeight);
        }
        width = Math.round(contentWidth);
        height = Math.round(contentHeight);
    }

    color: "transparent"
    visible: false
    onContentHeightChanged: fit()
    Component.onCompleted: fit()
}
