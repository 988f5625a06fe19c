import QtQuick
import QtQuick.Layouts
import Toolkit

// A field's name, a slider and the number. `moved` tells what the user wants it to be.
HStack {
    id: root

    required property string title
    property alias value: slider.value
    property alias minimumValue: slider.minimumValue
    property alias maximumValue: slider.maximumValue
    property alias stepSize: slider.stepSize
    property int decimals: 0

    signal moved(real wanted)

    Layout.fillWidth: true

    Label {
        text: root.title
        Accessible.ignored: true
        Layout.preferredWidth: 110
    }

    Slider {
        id: slider

        title: root.title
        onMoved: wanted => root.moved(wanted)
        Layout.fillWidth: true
    }

    Label {
        text: root.value.toFixed(root.decimals)
        horizontalAlignment: Text.AlignRight
        color: SystemStyle.secondaryLabel
        Layout.preferredWidth: 40
    }
}
