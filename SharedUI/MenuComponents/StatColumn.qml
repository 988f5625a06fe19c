import QtQuick
import QtQuick.Layouts
import Toolkit

// A figure with its symbol above and what it means below.
VStack {
    id: root

    required property string icon // a system symbol's name
    required property string value
    required property string label

    spacing: 6

    Symbol {
        objectName: "icon"
        name: root.icon
        size: 16
        color: SystemStyle.accent
        Layout.alignment: Qt.AlignHCenter
    }

    Label {
        objectName: "value"
        text: root.value
        font: TextStyle.system(18, Font.Bold)
        Layout.alignment: Qt.AlignHCenter
    }

    Label {
        objectName: "label"
        text: root.label
        font: TextStyle.system(10, Font.Normal)
        color: SystemStyle.secondaryLabel
        Layout.alignment: Qt.AlignHCenter
    }
}
