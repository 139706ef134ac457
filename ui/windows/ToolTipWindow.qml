import QtQuick
import Orvane

/// A short text in a window of its own, below a button on which the pointer rests.
Item {
    id: root

    required property PlainButton button
    required property string text
    readonly property bool hovered: button.containsMouse
    readonly property bool pressed: button.pressedDown
    property bool pressedBefore: false  ///< since the pointer came: it hides the text until the pointer comes again
    readonly property bool wanted: hovered && !pressedBefore

    onHoveredChanged: pressedBefore = false
    onPressedChanged: pressedBefore = true
    onWantedChanged: loader.active = false

    Timer {
        interval: 700
        running: root.wanted && root.text !== ""
        onTriggered: loader.active = true
    }

    Loader {
        id: loader

        active: false
        sourceComponent: Window {
            id: window

            color: "transparent"
            Component.onCompleted: {
                controller.place(label.implicitWidth + 14, label.implicitHeight + 8,
                    PopupController.Below, 4);
                visible = true;
            }

            PopupController {
                id: controller

                window: window
                anchor: root.button
                takesInput: false
                onDismissed: loader.active = false
            }

            SmoothRectangle {
                anchors.fill: parent
                radius: Theme.windowRadius > 0 ? 5 : 0
                color: Theme.menuBackground
                borderColor: Theme.windowOutline
                borderWidth: 1
            }

            Text {
                id: label

                anchors.centerIn: parent
                text: root.text
                textFormat: Text.PlainText
                font: Theme.subheadline
                color: Theme.label
            }
        }
    }
}
