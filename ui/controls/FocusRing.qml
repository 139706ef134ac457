import QtQuick
import Orvane

/// The mark of the control that has the keyboard.
SmoothRectangle {
    z: 1
    radius: 5
    borderColor: Theme.focusRing
    borderWidth: 2
}
