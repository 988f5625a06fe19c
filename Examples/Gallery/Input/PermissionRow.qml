import QtQuick
import QtQuick.Layouts
import StirraGallery
import Toolkit

// A permission: what it is, and the ways to it.
HStack {
    id: root

    required property string title
    required property string status
    property bool canAsk: true

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
        visible: root.canAsk
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
