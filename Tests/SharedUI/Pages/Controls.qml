import QtQuick
import QtQuick.Layouts
import Toolkit

// The controls of the toolkit that the shared views are made of.
VStack {
    Switch {
        title: "Ring at noon"
        isOn: true
        Layout.fillWidth: true
    }

    Switch {
        title: "Ring at midnight"
        isSmall: true
        Layout.fillWidth: true
    }

    Slider {
        title: "Loudness"
        value: 0.3
        Layout.fillWidth: true
    }

    SegmentedPicker {
        title: "Bell"
        options: [
            {
                text: "Small",
                tag: 0
            },
            {
                text: "Large",
                tag: 1
            }
        ]
        selection: 1
        Layout.fillWidth: true
    }

    TextField {
        title: "Inscription"
        text: "For whom it rings"
        Layout.fillWidth: true
    }

    TextField {
        title: "Founder"
        placeholder: "Unknown"
        Layout.fillWidth: true

        FocusRing {
            anchors.fill: parent
            radius: 6
        }
    }
}
