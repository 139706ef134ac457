import QtQuick
import Orvane

/// The popover beside the panel. It closes when it loses the focus and, on X11, where a panel may
/// never take the focus, at a press outside. Wayland decides itself where it goes.
Window {
    id: root

    required property WindowController windows
    required property point statusItem  ///< where the panel says its item is, in device pixels

    title: "Orvane"
    color: "transparent"
    visible: false
    width: view.width + 2 * view.x
    height: view.height + 2 * view.y
    Component.onCompleted: controller.placeAtStatusItem(statusItem, windows.panelFrames())

    PopupController {
        id: controller

        window: root
        margin: Theme.shadowMargin
        hasMenuOpen: view.menuOpen
        onDismissed: left => root.windows.dismissPopover(left)
    }

    WindowShadow {
        anchors.fill: view
        radius: Theme.windowRadius
    }

    StatusMenuView {
        id: view

        x: Theme.shadowMargin
        y: Theme.shadowMargin
        objectName: "statusMenu"
        model: root.windows.model
        windows: root.windows
        onCloseRequested: root.windows.dismissPopover(false)
    }
}
