import QtQuick
import QtQuick.Layouts
import SharedUI
import Toolkit

// The form in which the user edits the preferences that every program of the family has. Each edit is stored at once;
// `preferencesSaved` follows it. What it shows is the record as it was stored when the form came into a window; a change
// from elsewhere is not picked up while it stays there.
VStack {
    id: root

    readonly property bool isInWindow: Window.window !== null

    signal preferencesSaved

    spacing: 16

    onIsInWindowChanged: if (isInWindow)
        form.load()

    PreferencesForm {
        id: form

        onPreferencesSaved: root.preferencesSaved()
    }

    SectionTitle {
        text: qsTr("General")
    }

    Setting {
        objectName: "launchAtLogin"
        title: qsTr("Launch at login")
        isOn: form.launchAtLogin
        onToggled: wanted => form.launchAtLogin = wanted
    }

    Setting {
        objectName: "showMenuBarIcon"
        title: qsTr("Show menu bar icon")
        isOn: form.showMenuBarIcon
        onToggled: wanted => form.showMenuBarIcon = wanted
    }

    Divider {
    }

    SectionTitle {
        text: qsTr("Appearance")
    }

    SegmentedPicker {
        objectName: "theme"
        title: qsTr("Theme")
        options: [
            {
                text: qsTr("System"),
                tag: "system"
            },
            {
                text: qsTr("Light"),
                tag: "light"
            },
            {
                text: qsTr("Dark"),
                tag: "dark"
            }
        ]
        selection: form.theme
        onPicked: tag => form.theme = tag
        Layout.fillWidth: true
    }

    Setting {
        objectName: "reduceMotion"
        title: qsTr("Reduce motion")
        isOn: form.reduceMotion
        onToggled: wanted => form.reduceMotion = wanted
    }

    Setting {
        objectName: "reduceTransparency"
        title: qsTr("Reduce transparency")
        isOn: form.reduceTransparency
        onToggled: wanted => form.reduceTransparency = wanted
    }

    component SectionTitle: Label {
        font: TextStyle.headline
        horizontalAlignment: Text.AlignLeft
        wrapMode: Text.Wrap
        Accessible.role: Accessible.Heading
        Layout.fillWidth: true
    }

    component Setting: Switch {
        Layout.fillWidth: true
    }
}
