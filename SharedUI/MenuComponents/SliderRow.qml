import QtQuick
import QtQuick.Layouts
import SharedUI
import Toolkit

// A number that is set by a slider: a symbol, a title and the number above it. What it shows is `value`, which the caller
// owns: `moved` tells what the user wants it to be, always in the range and on a step.
VStack {
    id: root

    required property string icon // a system symbol's name
    required property string title
    required property real value
    required property var range // [lowest, highest]
    required property real step
    // In the style of printf, for exactly one double; one that is not is taken as "%.0f".
    property string format: "%.0f"

    signal moved(real wanted)

    spacing: 8
    Layout.fillWidth: true

    HStack {
        Layout.topMargin: 4
        Layout.fillWidth: true

        Symbol {
            objectName: "icon"
            name: root.icon
            size: 12
            color: SystemStyle.accent
        }

        Label {
            objectName: "title"
            text: root.title
            font: TextStyle.system(12, Font.Normal)
            elide: Text.ElideRight
            horizontalAlignment: Text.AlignLeft
            Accessible.ignored: true // the slider says it
            Layout.fillWidth: true
        }

        Label {
            objectName: "value"
            text: NumberText.formatted(root.format, root.value)
            font: TextStyle.system(11, Font.Normal)
            color: SystemStyle.secondaryLabel
            elide: Text.ElideRight
            horizontalAlignment: Text.AlignRight
            Layout.preferredWidth: 40
            Layout.minimumWidth: 40
            Layout.maximumWidth: 40
        }
    }

    Slider {
        objectName: "slider"
        title: root.title
        isSmall: true
        value: root.value
        minimumValue: root.range[0]
        maximumValue: root.range[1]
        stepSize: root.step
        onMoved: wanted => root.moved(wanted)
        Layout.bottomMargin: 4
        Layout.fillWidth: true
    }
}
