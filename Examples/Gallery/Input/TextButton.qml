import QtQuick
import Toolkit

// A push button with a text.
PlainButton {
    id: root

    property string description: text // what assistive technology calls it

    implicitWidth: label.implicitWidth + 2 * 10
    implicitHeight: 24
    radius: 6
    Accessible.name: description

    RoundedRectangle {
        anchors.fill: parent
        radius: root.radius
        color: SystemStyle.controlFace
        strokeColor: SystemStyle.separator
        strokeWidth: 1
    }

    Label {
        id: label

        anchors.centerIn: parent
        text: root.text
        Accessible.ignored: true
    }
}
