import QtQuick
import QtQuick.Layouts
import Toolkit

// A figure with its symbol above and what it means below, in two lines at the most where there is less room.
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
        elide: Text.ElideRight
        horizontalAlignment: Text.AlignHCenter
        Layout.fillWidth: true
    }

    Label {
        objectName: "label"
        text: root.label
        font: TextStyle.system(10, Font.Normal)
        color: SystemStyle.secondaryLabel
        wrapMode: Text.Wrap
        maximumLineCount: 2
        elide: Text.ElideRight
        horizontalAlignment: Text.AlignHCenter
        Layout.fillWidth: true
    }
}
