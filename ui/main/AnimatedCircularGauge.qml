import QtQuick
import Orvane

/// The large ring: used memory of all memory, and a glow and circling highlights while a boost
/// runs.
Item {
    id: root

    required property real usage  ///< percent
    required property string usageText
    required property bool processing
    // For assistive technology.
    readonly property real value: usage
    readonly property real maximumValue: 100
    readonly property int lineWidth: 18
    readonly property alias track: track
    readonly property alias arc: usageArc
    readonly property alias percentage: percentage

    implicitWidth: 180
    implicitHeight: 180
    Accessible.role: Accessible.Dial  // Qt gives a ProgressBar no value
    Accessible.name: qsTr("Memory usage: %1", "of a ring; %1 is a percentage, for assistive technology").arg(usageText)

    UsageColors {
        id: usageColors

        usage: root.usage
        dark: Theme.dark
        warmth: isHigh ? 1 : 0

        Behavior on warmth {
            enabled: onScreen.holds

            Spring {
                response: 0.6
                dampingFraction: 0.7
            }
        }
    }

    OnScreen {
        id: onScreen

        item: root
    }

    ProcessingMotion {
        id: motion

        active: root.processing
        visible: onScreen.holds
        turnDuration: 1500
        pulseDuration: 1000
    }

    GradientArc {
        id: track

        anchors.fill: parent
        lineWidth: root.lineWidth
        colors: [Theme.gaugeTrack]
    }

    Loader {
        anchors.fill: parent
        active: root.processing
        sourceComponent: GradientArc {
            objectName: "glow"
            smooth: true
            lineWidth: 22
            colors: [Theme.blue, Theme.purple]
            blurRadius: 8
            opacity: 0.6 * motion.pulse
            scale: 1 + 0.1 * motion.pulse
        }
    }

    GradientArc {
        id: usageArc

        objectName: "usageArc"
        anchors.fill: parent
        to: root.usage / 100
        lineWidth: root.lineWidth
        roundCaps: true
        // Turned with the arc: it runs from the bottom left to the top right of the screen.
        colors: usageColors.gradient
        startRotation: -90

        Behavior on to {
            enabled: onScreen.holds && usageArc.isVisibleChange(targetValue)

            Spring {
                response: 0.6
                dampingFraction: 0.7
            }
        }
    }

    Loader {
        anchors.fill: parent
        active: root.processing
        sourceComponent: ProcessingArcs {
            objectName: "processingArcs"
            lineWidth: root.lineWidth
            count: 3
            share: 0.15
            rotation: motion.rotation
        }
    }

    FontMetrics {
        id: figure

        font: percentage.font
    }

    Column {
        id: centre

        // What is seen lies in the middle: without the blank above the digits and below the words.
        readonly property real blankAbove: figure.ascent - figure.tightBoundingRect("0").height
        readonly property real blankBelow: caption.height - caption.baselineOffset

        anchors.centerIn: parent
        anchors.verticalCenterOffset: Math.round((blankBelow - blankAbove) / 2)
        spacing: 6

        GradientText {
            id: percentage

            objectName: "percentage"
            anchors.horizontalCenter: parent.horizontalCenter
            text: root.usageText
            font: Theme.systemFont(38, Font.Bold)
            maximumWidth: 146
            colors: usageColors.text
        }

        SpokenText {
            id: caption

            objectName: "caption"
            anchors.horizontalCenter: parent.horizontalCenter
            text: root.processing ? qsTr("Boosting...", "while memory is being freed") : qsTr("Used", "of memory")
            font: Theme.systemFont(10, Font.Medium)
        }
    }
}
