import QtQuick
import QtQuick.Layouts
import StirraGallery
import Toolkit

// A permission: what it is, and the two ways to it.
HStack {
    id: root

    required property string title
    required property string status

    signal requested
    signal settingsWanted

    Layout.fillWidth: true

    VStack {
        spacing: 2
        Layout.fillWidth: true

        Label {
            text: root.title
            horizontalAlignment: Text.AlignLeft
            Layout.fillWidth: true
        }

        Label {
            text: root.status
            horizontalAlignment: Text.AlignLeft
            Layout.fillWidth: true
            color: SystemStyle.secondaryLabel
        }
    }

    TextButton {
        text: "Ask"
        description: `Ask: ${root.title}`
        onClicked: root.requested()
    }

    TextButton {
        text: "Settings"
        description: `Settings: ${root.title}`
        onClicked: root.settingsWanted()
    }
}
