import QtQuick
import Orvane

/// A hairline across its parent.
Rectangle {
    width: parent.width
    implicitHeight: 1
    color: Theme.divider
}
