import QtQuick
import QtQuick.Layouts
import Toolkit

// What something is called, and what it is just now.
HStack {
    id: root

    required property string title
    required property string value

    Layout.fillWidth: true

    Label {
        text: root.title
        Layout.preferredWidth: 110
    }

    Label {
        text: root.value
        color: SystemStyle.secondaryLabel
        elide: Text.ElideLeft
        horizontalAlignment: Text.AlignLeft
        Layout.fillWidth: true
    }
}
