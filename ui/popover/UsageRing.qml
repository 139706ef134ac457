import QtQuick
import Orvane

/// The popover's ring: used memory of all memory, and two highlights that circle it while a boost
/// runs.
Item {
    id: root

    required property real usage  ///< percent
    required property string usageText
    required property bool processing
    property real boostRotation: 0  ///< degrees
    // For assistive technology.
    readonly property real value: usage
    readonly property real maximumValue: 100
    readonly property alias colors: progress.colors
    readonly property alias progressEnd: progress.to

    implicitWidth: 50
    implicitHeight: 50
    Accessible.role: Accessible.Dial  // Qt gives a ProgressBar no value
    Accessible.name: qsTr("Memory usage: %1", "of a ring; %1 is a percentage, for assistive technology").arg(usageText)

    UsageColors {
        id: usageColors

        usage: root.usage
        dark: Theme.dark
        warmth: isHigh ? 1 : 0
    }

    GradientArc {
        anchors.fill: parent
        lineWidth: 6
        colors: [Theme.withOpacity(Theme.gray, 0.2)]
    }

    GradientArc {
        id: progress

        anchors.fill: parent
        to: root.usage / 100
        lineWidth: 6
        roundCaps: true
        // Turned with the arc: it runs from the bottom left to the top right of the screen.
        colors: usageColors.ring
        startRotation: -90
    }

    Loader {
        anchors.fill: parent
        active: root.processing
        sourceComponent: ProcessingArcs {
            objectName: "boostArcs"
            lineWidth: 6
            count: 2
            share: 0.2
            rotation: root.boostRotation
        }
    }

    GradientText {
        objectName: "ringText"
        anchors.centerIn: parent
        text: root.usageText
        font: Theme.systemFont(12, Font.Bold)
        maximumWidth: 37
        colors: usageColors.text
    }
}
