import QtQuick
import QtQuick.Layouts
import SharedUI
import StirraGallery
import Toolkit

ComponentPage {
    id: page

    readonly property var palettes: ({
            system: [SystemStyle.purple, SystemStyle.blue, SystemStyle.cyan, SystemStyle.green],
            warm: [SystemStyle.red, SystemStyle.yellow, SystemStyle.purple],
            single: [SystemStyle.blue]
        })
    property string palette: "system"

    title: "MeshGradientBackground"
    stageHeight: 260
    stage: MeshGradientBackground {
        id: background

        anchors.fill: parent
        colors: page.palettes[page.palette]
    }

    NumberField {
        title: "Speed"
        maximumValue: 4
        stepSize: 0.1
        decimals: 1
        value: background.speed
        onMoved: wanted => background.speed = wanted
    }

    SegmentedPicker {
        title: "Colours"
        options: [
            {
                text: "System",
                tag: "system"
            },
            {
                text: "Warm",
                tag: "warm"
            },
            {
                text: "One",
                tag: "single"
            }
        ]
        selection: page.palette
        onPicked: tag => page.palette = tag
        Layout.fillWidth: true
    }
}
