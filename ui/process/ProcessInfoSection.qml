import QtQuick
import Orvane

/// A part of an application's details, below a line.
Column {
    default property alias content: body.data
    property alias contentSpacing: body.spacing

    width: parent.width
    spacing: 14

    Divider {}

    Column {
        id: body

        width: parent.width
        spacing: 10
    }
}
