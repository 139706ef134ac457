import QtQuick
import Orvane

/// A text that is part of something else: assistive technology reads what it is part of.
Text {
    textFormat: Text.PlainText
    font: Theme.caption
    color: Theme.secondaryLabel
    Accessible.ignored: true
}
