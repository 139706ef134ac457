import QtQuick
import Orvane

/// The main window's content: two tabs. Its ground is the window's GradientBackground.
FocusScope {
    id: root

    required property MemoryModel model
    required property WindowController windows
    property int selectedTab: 0  ///< 0 = overview, else the list of applications
    property bool showDetailedView: false
    readonly property real contentTop: picker.y + picker.height + 12

    width: 440
    height: 490

    SegmentedPicker {
        id: picker

        objectName: "tabs"
        x: 20
        y: 12
        width: root.width - 40
        name: qsTr("View", "name of the tabs, for assistive technology")
        segments: [qsTr("Overview", "title of a tab"), qsTr("Processes", "title of a tab")]
        currentIndex: root.selectedTab
        onChosen: index => root.selectedTab = index
    }

    Loader {
        objectName: "tabContent"
        anchors.fill: parent
        anchors.topMargin: root.contentTop
        active: root.selectedTab === 0 && root.model.hasSample
        sourceComponent: CompactOverviewView {
            model: root.model
            showDetailedView: root.showDetailedView
            onDetailsToggled: root.showDetailedView = !root.showDetailedView
            onProcessesRequested: root.selectedTab = 1
        }
    }

    Loader {
        anchors.fill: parent
        anchors.topMargin: root.contentTop
        active: root.selectedTab !== 0
        sourceComponent: ProcessesView {
            model: root.model
            windows: root.windows
        }
    }
}
