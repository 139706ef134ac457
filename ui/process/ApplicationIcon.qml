pragma ComponentBehavior: Bound
import QtQuick
import Orvane

/// The icon of an application, stretched to its square, or a placeholder of the same size.
Item {
    id: root

    required property string source  ///< empty = placeholder
    required property real side
    property real symbolSize: 13  ///< of the placeholder

    implicitWidth: side
    implicitHeight: side
    Accessible.ignored: true

    Image {
        id: picture

        objectName: "picture"
        anchors.fill: parent
        // An icon that can't be shown is a single clear pixel.
        visible: status === Image.Ready && implicitWidth > 1
        source: root.source
        // Image scales up a smaller picture, which blurs it.
        sourceSize.width: root.side * Screen.devicePixelRatio
        sourceSize.height: root.side * Screen.devicePixelRatio
    }

    Rectangle {
        anchors.fill: parent
        visible: !picture.visible && picture.status !== Image.Loading
        radius: width / 2
        antialiasing: true
        color: Theme.withOpacity(Theme.blue, 0.2)

        Symbol {
            anchors.centerIn: parent
            anchors.alignWhenCentered: false
            name: "app.fill"
            pointSize: root.symbolSize
            color: Theme.blue
        }
    }
}
