import QtQuick
import Toolkit

// A symbol on a ground of its own colour, faint, with rounded corners: what the rows of a popover begin with.
RoundedRectangle {
    id: root

    required property string icon
    required property color tint
    property real groundOpacity: 0.1

    implicitWidth: 24
    implicitHeight: 24
    radius: 6
    color: Qt.alpha(tint, tint.a * groundOpacity)

    Symbol {
        objectName: "icon"
        anchors.centerIn: parent
        name: root.icon
        size: 14
        color: root.tint
    }
}
