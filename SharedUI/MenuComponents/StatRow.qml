import QtQuick
import QtQuick.Layouts
import Toolkit

// A figure in one line: its symbol, what it means, and at the trailing edge the figure. Where both do not fit, what it
// means is cut short first.
HStack {
    id: root

    required property string icon // a system symbol's name
    required property string value
    required property string label

    Layout.fillWidth: true

    Item {
        objectName: "frame"
        implicitWidth: 24
        implicitHeight: symbol.implicitHeight

        Symbol {
            id: symbol

            objectName: "icon"
            anchors.centerIn: parent
            name: root.icon
            color: SystemStyle.accent
        }
    }

    Label {
        objectName: "label"
        text: root.label
        color: SystemStyle.secondaryLabel
        elide: Text.ElideRight
        horizontalAlignment: Text.AlignLeft
        Layout.fillWidth: true
    }

    Label {
        objectName: "value"
        text: root.value
        font: TextStyle.system(13, Font.Medium)
        elide: Text.ElideRight
        horizontalAlignment: Text.AlignRight
        Layout.preferredWidth: Math.min(Math.ceil(implicitWidth), Math.max(0, root.width - 24 - 2 * root.spacing))
    }
}
