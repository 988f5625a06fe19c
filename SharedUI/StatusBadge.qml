import QtQuick
import Toolkit

// A small capsule with a status's symbol and a text, both in the status's colour. The symbol of a live status (active,
// processing) pulses between 100 % and 110 % of its size, a second each way, for as long as the badge is shown.
//
// The pulse is decided when the badge appears, which is when it becomes visible in a window. One that turns live later
// does not pulse until it appears anew; one that is live no more stays at 110 %, at rest. Where the user wants less
// motion nothing pulses; when that ends a badge that is shown counts as appearing anew.
Item {
    id: root

    enum Status {
        Active,
        Inactive,
        Warning,
        Error,
        Processing
    }

    required property int status // of StatusBadge.Status
    required property string text

    readonly property bool isPulsing: pulse.isPulsing // set by an appearance, and never reset
    readonly property color color: colorOf(status)
    readonly property string icon: iconOf(status)
    readonly property bool mayMove: !SystemStyle.reducesMotion
    readonly property bool isLive: status === StatusBadge.Active || status === StatusBadge.Processing
    readonly property bool isShown: visible && Window.window !== null && Window.window.visible

    implicitWidth: row.implicitWidth + 2 * 10
    implicitHeight: row.implicitHeight + 2 * 5

    onIsShownChanged: isShown ? pulse.appear() : pulse.stop()
    onMayMoveChanged: mayMove && isShown ? pulse.appear() : pulse.reset()
    onIsLiveChanged: if (!isLive)
        pulse.stop()

    // The colour of a status; a number that is none counts as inactive.
    function colorOf(status: int): color {
        switch (status) {
        case StatusBadge.Active:
            return SystemStyle.green;
        case StatusBadge.Warning:
            return SystemStyle.yellow;
        case StatusBadge.Error:
            return SystemStyle.red;
        case StatusBadge.Processing:
            return SystemStyle.blue;
        default:
            return SystemStyle.gray;
        }
    }

    // The system name of a status's symbol.
    function iconOf(status: int): string {
        switch (status) {
        case StatusBadge.Active:
            return "checkmark.circle.fill";
        case StatusBadge.Warning:
            return "exclamationmark.triangle.fill";
        case StatusBadge.Error:
            return "xmark.circle.fill";
        case StatusBadge.Processing:
            return "arrow.triangle.2.circlepath";
        default:
            return "circle";
        }
    }

    RoundedRectangle {
        anchors.fill: parent
        radius: height / 2
        color: Qt.alpha(root.color, 0.15)
    }

    HStack {
        id: row

        anchors.centerIn: parent
        spacing: 6

        Symbol {
            id: symbol

            objectName: "symbol"
            name: root.icon
            size: 10
            color: root.color
            smooth: pulse.isPulsing
        }

        Label {
            text: root.text
            font: TextStyle.system(11, Font.Medium)
            color: root.color
        }
    }

    SequentialAnimation {
        id: pulse

        property bool isPulsing: false

        loops: Animation.Infinite
        onStopped: symbol.scale = isPulsing ? 1.1 : 1

        function appear(): void {
            if (!root.isLive || !root.mayMove)
                return;
            isPulsing = true;
            start();
        }

        function reset(): void {
            isPulsing = false;
            stop();
            symbol.scale = 1;
        }

        PulseHalf {
            target: symbol
            from: 1
            to: 1.1
        }

        PulseHalf {
            target: symbol
            from: 1.1
            to: 1
        }
    }

    component PulseHalf: NumberAnimation {
        property: "scale"
        duration: 1000
        easing.type: Easing.BezierSpline
        easing.bezierCurve: [0.42, 0, 0.58, 1, 1, 1] // ease in and out, as CSS Easing Functions 1 gives it
    }
}
