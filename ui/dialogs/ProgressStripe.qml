import QtQuick
import Orvane

/// Progress of unknown length.
Item {
    id: root

    property bool running: false

    height: 6
    clip: true
    Accessible.role: Accessible.ProgressBar
    Accessible.name: qsTr("Checking", "name of the progress of an update check, for assistive technology")

    OnScreen {
        id: onScreen

        item: root
    }

    SmoothRectangle {
        anchors.fill: parent
        radius: 3
        color: Theme.compressedTrack
    }

    SmoothRectangle {
        id: stripe

        width: 80
        height: parent.height
        radius: 3
        gradientColors: [Theme.blue, Theme.purple]

        SequentialAnimation on x {
            running: root.running && onScreen.holds && !Motion.reduced
            loops: Animation.Infinite

            NumberAnimation {
                from: 0
                to: root.width - stripe.width
                duration: 900
                easing.type: Easing.InOutQuad
            }
            NumberAnimation {
                from: root.width - stripe.width
                to: 0
                duration: 900
                easing.type: Easing.InOutQuad
            }
        }
    }
}
