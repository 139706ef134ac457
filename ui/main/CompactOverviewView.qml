import QtQuick
import Orvane

/// The overview tab: the gauge, three figures, the boost button and, when wanted, the details.
/// Empty without a sample.
Item {
    id: root

    required property MemoryModel model
    required property bool showDetailedView

    signal detailsToggled
    signal processesRequested

    onShowDetailedViewChanged: if (showDetailedView)
        scrollDelay.restart()

    Timer {
        id: scrollDelay

        interval: 400
        onTriggered: {
            const shown = content.item as OverviewContent;
            if (shown)
                shown.scrollToBottom();
        }
    }

    Loader {
        id: content

        anchors.fill: parent
        active: root.model.hasSample
        sourceComponent: OverviewContent {
            model: root.model
            showDetailedView: root.showDetailedView
            onDetailsToggled: root.detailsToggled()
            onProcessesRequested: root.processesRequested()
        }
    }
}
