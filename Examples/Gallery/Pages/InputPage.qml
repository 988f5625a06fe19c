import QtQuick
import QtQuick.Layouts
import StirraGallery
import Toolkit

// What a program may see and type in the session, the questions for it, and what it sees while this page is shown.
ComponentPage {
    id: page

    property bool isWanted: false

    title: "Input"
    stageHeight: 0
    onVisibleChanged: probe.refresh()

    InputProbe {
        id: probe

        isListening: page.isWanted && page.visible
    }

    // The user comes back from the settings, or from the desktop's question.
    Connections {
        target: Qt.application
        function onStateChanged() {
            if (page.visible) {
                probe.refresh();
            }
        }
    }

    // Nobody tells when the user has answered.
    Timer {
        interval: 1000
        repeat: true
        running: page.visible && !probe.isTrusted
        onTriggered: probe.refreshTrust()
    }

    PermissionRow {
        title: "Accessibility"
        status: probe.isTrusted ? "granted" : "not granted"
        onRequested: probe.requestTrust()
        onSettingsWanted: probe.openAccessibilitySettings()
    }

    PermissionRow {
        title: "Input monitoring"
        status: "in the settings"
        canAsk: false
        onSettingsWanted: probe.openInputMonitoringSettings()
    }

    PermissionRow {
        title: "Microphone"
        status: probe.isMicrophoneGranted ? "granted" : "not granted"
        onRequested: probe.requestMicrophone()
        onSettingsWanted: probe.openMicrophoneSettings()
    }

    PermissionRow {
        title: "Calendar"
        status: probe.calendar || "not asked"
        onRequested: probe.requestCalendar()
        onSettingsWanted: probe.openCalendarSettings()
    }

    PermissionRow {
        title: "Full disk access"
        status: "in the settings"
        canAsk: false
        onSettingsWanted: probe.openFullDiskAccessSettings()
    }

    Divider {
    }

    Switch {
        title: "Listen"
        isOn: probe.isListening
        onToggled: wanted => page.isWanted = wanted
        Layout.fillWidth: true
    }

    ValueRow {
        title: "Pointer"
        value: probe.isListening ? `${Math.round(probe.pointer.x)}, ${Math.round(probe.pointer.y)}` : "–"
    }

    ValueRow {
        title: "Last keys"
        value: probe.lastKeys || "–"
    }

    Divider {
    }

    WordField {
        id: sample

        title: "Sample"
        text: "Grüße, Γειά, 你好 👋🏽"
        onEdited: wanted => text = wanted
    }

    TextButton {
        text: probe.secondsToTyping > 0 ? `Types in ${probe.secondsToTyping} s` : "Type in 3 seconds"
        onClicked: probe.typeLater(sample.text)
    }
}
