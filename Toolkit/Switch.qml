import QtQuick
import QtQuick.Layouts
import Toolkit

// A switch with its title before it. Where it is made wider than it needs to be, the switch stands at the trailing edge.
// It is toggled by a click on either, by Space or Return, and through the accessibility tree.
//
// What it shows is `isOn`, which the caller owns: `toggled` tells what the user wants it to be.
HStack {
    id: root

    required property string title
    property string description: "" // what assistive technology says of it beside its title
    property bool isOn: false
    property bool isTitleShown: true // assistive technology is told in any case
    property bool isSmall: false // 28 × 16 points, and not 36 × 20

    signal toggled(bool wanted)

    function toggle(): void {
        motion.enabled = !SystemStyle.reducesMotion; // what the user did is seen to move, anything else is just so
        toggled(!isOn);
    }

    Label {
        objectName: "title"
        visible: root.isTitleShown
        text: root.title
        wrapMode: Text.Wrap
        horizontalAlignment: Text.AlignLeft
        Accessible.ignored: true
        Layout.fillWidth: true

        TapHandler {
            onTapped: root.toggle()
        }
    }

    PlainButton {
        id: button

        objectName: "button"
        text: root.title
        isCheckable: true
        isChecked: root.isOn
        radius: height / 2
        implicitWidth: root.isSmall ? 28 : 36
        implicitHeight: root.isSmall ? 16 : 20
        Accessible.role: Accessible.CheckBox
        Accessible.description: root.description
        Accessible.onToggleAction: root.toggle()
        onClicked: root.toggle()

        RoundedRectangle {
            objectName: "track"
            anchors.fill: parent
            radius: height / 2
            color: root.isOn ? SystemStyle.accent : SystemStyle.controlTrack
            strokeColor: SystemStyle.separator
            strokeWidth: 1
        }

        RoundedRectangle {
            objectName: "knob"
            x: 2 + (button.width - width - 4) * (LayoutMirroring.enabled ? 1 - knobMotion.place : knobMotion.place)
            y: 2
            width: button.height - 4
            height: width
            radius: width / 2
            color: "white"
            strokeColor: Qt.rgba(0, 0, 0, 0.12)
            strokeWidth: 0.5
        }
    }

    QtObject {
        id: knobMotion

        property real place: root.isOn ? 1 : 0 // from off to on

        Behavior on place {
            id: motion

            enabled: false

            NumberAnimation {
                duration: 120
                easing.type: Easing.OutCubic
            }
        }
    }
}
