import QtQuick
import Toolkit

// The ring that closes while the engine is active. Its change is the only animation of the window.
Item {
    id: root

    required property bool isActive
    readonly property int lineWidth: 3
    readonly property color groundColor: isActive ? Qt.alpha(SystemStyle.green, 0.2) : Qt.alpha(SystemStyle.gray, 0.1)

    implicitWidth: 90
    implicitHeight: 90

    TrimmedCircle {
        anchors.centerIn: parent
        diameter: root.width
        lineWidth: root.lineWidth
        topLeadingColor: root.groundColor
        bottomTrailingColor: root.groundColor
    }

    TrimmedCircle {
        objectName: "arc"
        anchors.centerIn: parent
        diameter: root.width
        lineWidth: root.lineWidth
        trimTo: root.isActive ? 1 : 0
        turn: -90
        visible: trimTo > 0
        topLeadingColor: SystemStyle.green
        bottomTrailingColor: SystemStyle.cyan

        Behavior on trimTo {
            NumberAnimation {
                duration: 500
                easing.type: Easing.InOutQuad
            }
        }
    }

    Symbol {
        anchors.centerIn: parent
        name: root.isActive ? "eye.fill" : "eye.slash.fill"
        size: 32
        color: root.isActive ? SystemStyle.green : SystemStyle.gray
    }
}
