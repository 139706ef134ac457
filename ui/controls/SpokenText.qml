import QtQuick
import Orvane

/// A text that assistive technology reads by itself.
Label {
    Accessible.ignored: false
    Accessible.role: Accessible.StaticText
    Accessible.name: text
}
