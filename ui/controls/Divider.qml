import QtQuick
import Orvane

/// A hairline across its parent.
Rectangle {
    implicitHeight: 1
    color: Theme.divider
}
