import QtQuick
import Toolkit

// A symbol of 22 × 22 points, in its colour while it is active, with a number in a red capsule over its top trailing
// corner.
Item {
    id: root

    required property string icon // a system symbol's name
    required property bool isActive
    property var badge: undefined // a whole number, shown where it is above 0
    required property color color

    implicitWidth: Math.max(22, capsule.visible ? capsule.width : 0)
    implicitHeight: Math.max(22, capsule.visible ? capsule.height : 0)

    Item {
        anchors.top: parent.top
        anchors.right: parent.right
        width: 22
        height: 22

        Symbol {
            objectName: "icon"
            anchors.centerIn: parent
            name: root.icon
            size: 16
            weight: Font.Medium
            color: root.isActive ? root.color : SystemStyle.secondaryLabel
        }
    }

    RoundedRectangle {
        id: capsule

        objectName: "badge"
        anchors.top: parent.top
        anchors.topMargin: -6
        anchors.right: parent.right
        anchors.rightMargin: -6
        visible: root.badge > 0
        width: number.implicitWidth + 2 * 4
        height: number.implicitHeight + 2 * 1
        radius: height / 2
        color: SystemStyle.red

        Label {
            id: number

            objectName: "number"
            anchors.centerIn: parent
            text: String(root.badge)
            font: TextStyle.system(9, Font.Bold)
            color: "white"
        }
    }
}
