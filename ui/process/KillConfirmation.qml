import QtQuick
import Orvane

/// Asks whether an application may be ended, in a modal window. Return and Escape both answer no
/// until the keyboard is moved to "Kill".
Item {
    id: root

    readonly property alias isShown: loader.active
    property var processToKill  ///< a ProcessRecord, kept until the next request

    signal confirmed(var record)

    /// Nothing for no record.
    function request(record: var) {
        if (!record || !record.valid)
            return;
        processToKill = record;
        loader.active = true;
    }

    function dismiss() {
        loader.active = false;
    }

    Loader {
        id: loader

        active: false
        sourceComponent: KillConfirmationWindow {
            owner: root.Window.window
            record: root.processToKill
            onDismissed: root.dismiss()
            onConfirmed: {
                root.dismiss();
                root.confirmed(root.processToKill);
            }
        }
    }
}
