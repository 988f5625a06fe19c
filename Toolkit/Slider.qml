import QtQuick
import Toolkit

// A knob on a track, from the leading to the trailing edge. It is moved by dragging, by a press anywhere on the track, by
// the arrow keys (a step), Page keys (ten steps), Home and End, and through the accessibility tree.
//
// What it shows is `value`, which the caller owns: `moved` tells what the user wants it to be, always in the range and on
// a step.
FocusScope {
    id: root

    required property string title // what assistive technology calls it
    property real value: 0
    property real minimumValue: 0
    property real maximumValue: 1
    property real stepSize: 0 // 0: as fine as the pointer; keys then move by a hundredth of the range
    property bool isSmall: false // a knob of 14 points, and not 18

    signal moved(real wanted)

    readonly property real span: maximumValue - minimumValue
    readonly property real keyStep: stepSize > 0 ? stepSize : span / 100
    // From 0 to 1; a value beyond the range stands at its end.
    readonly property real place: span > 0 ? Math.max(0, Math.min((value - minimumValue) / span, 1)) : 0

    implicitWidth: 120
    implicitHeight: knob.height + 2
    opacity: enabled ? 1 : 0.5
    activeFocusOnTab: true

    Keys.onPressed: event => {
        const forward = LayoutMirroring.enabled ? -keyStep : keyStep;
        const wanted = ({
                [Qt.Key_Left]: value - forward,
                [Qt.Key_Right]: value + forward,
                [Qt.Key_Down]: value - keyStep,
                [Qt.Key_Up]: value + keyStep,
                [Qt.Key_PageDown]: value - 10 * keyStep,
                [Qt.Key_PageUp]: value + 10 * keyStep,
                [Qt.Key_Home]: minimumValue,
                [Qt.Key_End]: maximumValue
            })[event.key];
        event.accepted = wanted !== undefined;
        if (event.accepted)
            move(wanted);
    }

    function move(wanted: real): void {
        const reached = onStep(Math.max(minimumValue, Math.min(wanted, maximumValue)));
        if (span > 0 && reached !== value)
            moved(reached);
    }

    // The last step may be a short one: the end of the range can always be reached.
    function onStep(wanted: real): real {
        if (stepSize <= 0 || wanted === maximumValue)
            return wanted;
        const steps = Math.round((wanted - minimumValue) / stepSize);
        return Math.min(minimumValue + steps * stepSize, maximumValue);
    }

    function moveTo(x: real): void {
        const share = (x - knob.width / 2) / (width - knob.width);
        move(minimumValue + (LayoutMirroring.enabled ? 1 - share : share) * span);
    }

    // What assistive technology reads, and writes to. Its names are those that Qt asks for.
    Item {
        id: accessibleSlider

        property real value: root.value
        readonly property real minimumValue: root.minimumValue
        readonly property real maximumValue: root.maximumValue
        readonly property real stepSize: root.keyStep

        objectName: "accessibleSlider"
        anchors.fill: parent
        Accessible.role: Accessible.Slider
        Accessible.name: root.title
        Accessible.focusable: true
        Accessible.focused: root.activeFocus
        Accessible.onIncreaseAction: root.move(root.value + root.keyStep)
        Accessible.onDecreaseAction: root.move(root.value - root.keyStep)
        onValueChanged: {
            if (value === root.value)
                return;
            root.move(value);
            value = Qt.binding(() => root.value);
        }
    }

    MouseArea {
        anchors.fill: parent
        preventStealing: true
        onPressed: event => {
            root.forceActiveFocus(Qt.MouseFocusReason);
            root.moveTo(event.x);
        }
        onPositionChanged: event => root.moveTo(event.x)
    }

    RoundedRectangle {
        objectName: "track"
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        height: 4
        radius: 2
        color: SystemStyle.separator
    }

    RoundedRectangle {
        objectName: "filled"
        anchors.left: parent.left
        anchors.verticalCenter: parent.verticalCenter
        width: knob.offset + knob.width / 2
        height: 4
        radius: 2
        color: SystemStyle.accent
    }

    RoundedRectangle {
        id: knob

        readonly property real offset: Math.round(root.place * (root.width - width)) // from the leading edge

        objectName: "knob"
        anchors.left: parent.left
        anchors.leftMargin: offset
        anchors.verticalCenter: parent.verticalCenter
        width: root.isSmall ? 14 : 18
        height: width
        radius: width / 2
        color: "white"
        strokeColor: Qt.rgba(0, 0, 0, 0.15)
        strokeWidth: 1
    }

    FocusRing {
        anchors.fill: knob
        active: root.activeFocus
        radius: knob.radius
    }
}
