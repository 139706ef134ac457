import QtQuick
import Orvane

/// The overview of a sample: the gauge, three figures, the boost button and, when wanted, the
/// details.
Item {
    id: root

    required property MemoryModel model
    required property bool showDetailedView

    signal detailsToggled
    signal processesRequested

    property bool complete: false

    // Not when the view is made with its details open: they were seen before.
    onShowDetailedViewChanged: if (showDetailedView && complete)
        scrollDelay.restart()
    Component.onCompleted: complete = true

    Timer {
        id: scrollDelay

        interval: 400
        onTriggered: area.scrollToBottom(area.contentEnd)
    }

    ScrollArea {
        id: area

        readonly property real contentEnd: bottomAnchor.y + bottomAnchor.height

        objectName: "scrollArea"
        width: root.width
        height: bar.y - 1
        backdrop: Theme.windowGradient
        // Blank space below the last line alone lets nothing scroll; it grows with the details, so
        // that nothing jumps.
        contentHeight: contentEnd + Math.max(0, Math.min(30, contentEnd - height))

        GaugeShadow {
            anchors.fill: gauge
            anchors.topMargin: 8
            anchors.bottomMargin: -8
            gauge: gauge
        }

        AnimatedCircularGauge {
            id: gauge

            objectName: "gauge"
            x: (root.width - width) / 2
            y: 30
            width: 180
            height: 180
            usage: root.model.usagePercentage
            usageText: root.model.percentText
            processing: root.model.isProcessing
        }

        Row {
            id: cards

            readonly property real cardWidth: (width - 2 * spacing) / 3

            objectName: "cards"
            x: 20
            y: gauge.y + gauge.height + 20
            width: root.width - 40
            spacing: 12

            CompactStatCard {
                width: cards.cardWidth
                title: "Free"
                value: Format.bytesInGB(root.model.availableBytes, 1)
                valueColor: Theme.green
            }

            CompactStatCard {
                width: cards.cardWidth
                title: "Used"
                value: Format.bytesInGB(root.model.usedBytes, 1)
                valueColor: Theme.orange
            }

            CompactStatCard {
                width: cards.cardWidth
                title: "Total"
                value: Format.bytesInGB(root.model.totalBytes, 1)
                valueColor: Theme.blue
            }
        }

        MainBoostButton {
            id: boostButton

            objectName: "boostButton"
            x: 20
            y: cards.y + cards.height + 20
            width: root.width - 40
            enabled: !root.model.isProcessing
            onClicked: root.model.boostMemory()
        }

        Loader {
            id: details

            readonly property real openY: boostButton.y + boostButton.height + 20
            property real shown: root.showDetailedView ? 1 : 0  ///< 0 closed, 1 open

            objectName: "details"
            y: area.onPixel(openY - (1 - shown) * height)
            z: -1
            width: root.width
            active: root.showDetailedView || shown > 0
            opacity: Math.max(0, Math.min(1, shown))
            sourceComponent: OverviewDetails {
                width: root.width
                model: root.model
                onProcessesRequested: root.processesRequested()
            }

            Behavior on shown {
                Spring {
                    response: 0.3
                    dampingFraction: 0.825
                }
            }
        }

        Item {
            id: bottomAnchor

            objectName: "bottomAnchor"
            y: details.openY + details.shown * (details.height > 0 ? details.height + 20 : 0)
            width: root.width
            height: 1
        }
    }

    Divider {
        anchors.bottom: bar.top
    }

    DetailsToggleBar {
        id: bar

        objectName: "detailsToggle"
        anchors.bottom: parent.bottom
        width: root.width
        open: root.showDetailedView
        onClicked: root.detailsToggled()
    }
}
