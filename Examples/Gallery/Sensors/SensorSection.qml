import QtQuick
import QtQuick.Layouts
import StirraGallery
import Toolkit

// A sensor's name and value above the plot of the last half minute, or a word on what is missing.
VStack {
    id: root

    required property string title
    required property string value
    property string missing: "" // in place of the plot
    property alias history: plot.history
    property alias colors: plot.colors
    property alias lowest: plot.lowest
    property alias highest: plot.highest

    spacing: 4
    Layout.fillWidth: true

    HStack {
        Layout.fillWidth: true

        Label {
            text: root.title
            Accessible.role: Accessible.Heading
            Layout.fillWidth: true
        }

        Label {
            text: root.value
            visible: root.missing === ""
            color: SystemStyle.secondaryLabel
        }
    }

    Label {
        text: root.missing
        visible: root.missing !== ""
        color: SystemStyle.secondaryLabel
        wrapMode: Text.Wrap
        Layout.fillWidth: true
    }

    Rectangle {
        visible: root.missing === ""
        color: SystemStyle.groupBackground
        border.color: SystemStyle.separator
        Layout.fillWidth: true
        Layout.preferredHeight: 64

        SensorPlot {
            id: plot

            anchors.fill: parent
            anchors.margins: 1
        }
    }
}
