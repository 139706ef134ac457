import QtQuick
import Orvane

/// Used and total memory with the ring, and the details that slide out below.
Item {
    id: root

    required property MemoryModel model
    required property real boostRotation
    property bool showDetails: false
    property real expansion: showDetails ? 1 : 0  ///< 0 closed, 1 open, beyond 1 while it swings

    implicitHeight: header.height + Math.round(details.implicitHeight * Math.max(0, expansion))

    Behavior on expansion {
        Spring {
            response: 0.3
            dampingFraction: 0.825
        }
    }

    Item {
        id: header

        readonly property real bottomPadding: Math.round(12 - 4 * Math.min(1, root.expansion))

        width: root.width
        height: 12 + Math.max(texts.height, ring.height) + bottomPadding
        z: 1

        Column {
            id: texts

            x: 12
            y: 12 + Math.round((ring.height - height) / 2)
            spacing: 3

            Row {
                spacing: 4

                SpokenText {
                    id: title

                    text: qsTr("Memory Usage", "title of the popover")
                    font: Theme.systemFont(12, Font.DemiBold)
                    color: Theme.label
                }

                PlainButton {
                    objectName: "detailsButton"
                    width: chevron.width
                    height: chevron.height
                    anchors.verticalCenter: title.verticalCenter
                    expanded: root.showDetails
                    name: root.showDetails ? qsTr("Hide Details", "button: closes what it opened") : qsTr("Show Details", "button: opens more of the view")
                    focusInset: -2
                    focusRadius: 9
                    onClicked: root.showDetails = !root.showDetails

                    Symbol {
                        id: chevron

                        name: root.showDetails ? "chevron.up.circle.fill" : "chevron.down.circle.fill"
                        pointSize: 11
                        color: Theme.secondaryLabel
                    }
                }
            }

            SpokenText {
                objectName: "amounts"
                text: root.model.usedOfTotalText
            }
        }

        UsageRing {
            id: ring

            objectName: "ring"
            x: parent.width - 12 - width
            y: 12
            usage: root.model.usagePercentage
            usageText: root.model.wholePercentText
            processing: root.model.isProcessing
            boostRotation: root.boostRotation
        }
    }

    Item {
        y: header.height
        width: root.width
        height: root.height - y
        clip: true

        Loader {
            id: details

            y: Math.round((Math.min(1, root.expansion) - 1) * height)
            width: root.width
            active: root.showDetails || root.expansion > 0
            opacity: Math.max(0, Math.min(1, root.expansion))
            sourceComponent: MemoryDetails {
                objectName: "details"
                width: root.width
                model: root.model
            }
        }
    }
}
