import QtQuick
import QtQuick.Layouts
import Stirra
import Toolkit

// A figure with its symbol and its name.
Item {
    id: root

    required property string icon
    required property string value
    required property string label
    required property color color

    implicitHeight: stack.implicitHeight + 28
    Layout.fillWidth: true
    Layout.preferredWidth: 1 // all alike: the cards share the width equally

    Card {
        anchors.fill: parent
        radius: 10
    }

    VStack {
        id: stack

        anchors.left: parent.left
        anchors.right: parent.right
        y: 14
        spacing: 6

        Symbol {
            name: root.icon
            size: 14
            color: root.color
            Layout.alignment: Qt.AlignHCenter
        }

        ShrinkingLabel {
            objectName: "value"
            text: root.value
            font: TextStyle.system(16, Font.Bold)
            Layout.fillWidth: true
            Layout.preferredWidth: 1
        }

        Label {
            text: root.label
            font: TextStyle.system(9, Font.Normal)
            color: SystemStyle.secondaryLabel
            Layout.alignment: Qt.AlignHCenter
        }
    }
}
