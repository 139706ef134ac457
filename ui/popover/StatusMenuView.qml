import QtQuick
import Orvane

/// The popover's content: memory at a glance, the boost button and the menu. Sets its own size.
///
/// A scope, so that Escape still arrives here while the button that has the keyboard is disabled.
FocusScope {
    id: root

    required property MemoryModel model
    required property WindowController windows
    readonly property bool menuOpen: gear.menuOpen
    property bool detailsShown: false

    /// The user pressed Escape.
    signal closeRequested

    width: 300
    height: Theme.paintedLength(column.height, Screen.devicePixelRatio)
    focus: true
    Accessible.role: Accessible.Pane
    Accessible.name: "Orvane"
    Accessible.focused: Window.activeFocusItem === root
    Keys.onEscapePressed: closeRequested()

    OnScreen {
        id: onScreen

        item: root
    }

    ProcessingMotion {
        id: boost

        active: root.model.isProcessing
        visible: onScreen.holds
        turnDuration: 1000
        pulseDuration: 500
    }

    SmoothRectangle {
        anchors.fill: parent
        radius: Theme.windowRadius
        color: Theme.windowBackground
        borderColor: Theme.windowOutline
        borderWidth: 1
    }

    Column {
        id: column

        width: root.width

        Loader {
            id: header

            width: root.width
            active: root.model.hasSample
            visible: active
            sourceComponent: StatusHeader {
                objectName: "header"
                width: root.width
                model: root.model
                boostRotation: boost.rotation
                showDetails: root.detailsShown
                onShowDetailsChanged: root.detailsShown = showDetails
            }
        }

        Divider {
            width: root.width
        }

        Item {
            width: root.width
            height: Math.max(boostButton.implicitHeight, gear.implicitHeight)

            BoostButton {
                id: boostButton

                objectName: "boostButton"
                width: root.width - gear.width
                height: parent.height
                processing: root.model.isProcessing
                boostRotation: boost.rotation
                boostScale: 1 + 0.2 * boost.pulse
                onClicked: root.windows.boostMemoryFromMenu()
            }

            GearMenu {
                id: gear

                objectName: "gearMenu"
                anchors.right: parent.right
                height: parent.height
                windows: root.windows
            }
        }
    }
}
