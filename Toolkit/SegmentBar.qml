import QtQuick
import QtQuick.Layouts
import Toolkit

// Segments side by side, of equal widths, one of which is raised: what SegmentedPicker and TabView choose with. A click
// or the accessibility tree picks a segment. The keyboard's focus comes to the raised one, and the left and right arrow
// keys pick its neighbours.
//
// What it shows is `currentIndex`, which the caller owns: `picked` tells what the user wants it to be.
FocusScope {
    id: root

    // Of objects with a `text` and a `symbol`, which is a system name or empty.
    required property var segments
    property int currentIndex: 0
    property int segmentRole: Accessible.RadioButton

    signal picked(int index)

    readonly property int stop: Math.max(0, Math.min(currentIndex, segments.length - 1)) // of the focus
    // Of what the segments show.
    readonly property real widest: Math.max(...Array.from(row.children, segment => segment.contentWidth ?? 0))

    implicitWidth: segments.length * (Math.ceil(widest) + 2 * 14)
    implicitHeight: 24

    // How far beside the current one, towards the trailing edge.
    function move(steps: int): void {
        const index = stop + (LayoutMirroring.enabled ? -steps : steps);
        if (index < 0 || index >= segments.length)
            return;
        repeater.itemAt(index).forceActiveFocus(Qt.TabFocusReason);
        pick(index);
    }

    function focusCurrent(): void {
        repeater.itemAt(stop)?.forceActiveFocus(Qt.OtherFocusReason);
    }

    function pick(index: int): void {
        if (index !== currentIndex)
            picked(index);
    }

    RoundedRectangle {
        objectName: "track"
        anchors.fill: parent
        radius: 6
        color: SystemStyle.controlTrack
        strokeColor: SystemStyle.separator
        strokeWidth: 1
    }

    Row {
        id: row

        anchors.fill: parent

        Repeater {
            id: repeater

            model: root.segments

            Segment {
            }
        }
    }

    component Segment: PlainButton {
        id: segment

        required property var modelData
        required property int index
        readonly property bool isCurrent: index === root.currentIndex
        readonly property real contentWidth: content.implicitWidth

        text: modelData.text
        isCheckable: root.segmentRole === Accessible.RadioButton
        isChecked: isCheckable && isCurrent
        width: Math.floor(root.width / root.segments.length)
        height: root.height
        radius: 6
        z: activeFocus ? 1 : 0 // the ring lies over the neighbours
        activeFocusOnTab: index === root.stop || activeFocus // which cannot cease to be one
        Accessible.role: root.segmentRole
        Accessible.selectable: !isCheckable
        Accessible.selected: !isCheckable && isCurrent
        Accessible.onToggleAction: root.pick(index)
        onClicked: root.pick(index)
        Keys.onLeftPressed: root.move(-1)
        Keys.onRightPressed: root.move(1)

        RoundedRectangle {
            objectName: "raised"
            anchors.fill: parent
            anchors.margins: 2
            visible: segment.isCurrent
            radius: 4
            color: SystemStyle.controlFace
            strokeColor: SystemStyle.separator
            strokeWidth: 0.5
        }

        HStack {
            id: content

            anchors.centerIn: parent
            width: Math.min(implicitWidth, segment.width - 8)
            spacing: 5

            Symbol {
                visible: name !== ""
                name: segment.modelData.symbol ?? ""
                size: 12
                color: SystemStyle.label
            }

            Label {
                text: segment.modelData.text
                elide: Text.ElideRight
                Accessible.ignored: true
                Layout.fillWidth: true
            }
        }
    }
}
