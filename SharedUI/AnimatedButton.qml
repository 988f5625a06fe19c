import QtQuick
import Toolkit

// A filled button in the accent colour that shrinks to 95 % with a slight spring while the pointer holds it down, even
// where it has moved away. `action` runs once for each completed click, by pointer, key or assistive technology,
// whatever the spring does. It keeps its size where the user wants less motion.
FocusScope {
    id: root

    required property string title
    property string icon: "" // a system symbol's name; empty: no symbol
    required property var action // a function without arguments

    readonly property bool isPressed: pointer.active

    implicitWidth: row.implicitWidth + 2 * 20
    implicitHeight: row.implicitHeight + 2 * 12
    scale: spring.value

    Spring {
        id: spring

        target: root.isPressed && !SystemStyle.reducesMotion ? 0.95 : 1
        response: 0.3
        dampingFraction: 0.6
    }

    DropShadow {
        objectName: "shadow"
        anchors.fill: parent
        cornerRadius: 12
        radius: 8
        offset: 4
        color: Qt.alpha(SystemStyle.accent, 0.3)
    }

    PlainButton {
        objectName: "button"
        anchors.fill: parent
        focus: true
        text: root.title
        radius: 12
        onClicked: {
            const run = root.action;
            run();
        }

        // Beside the button's own handling of clicks, and in nobody's way.
        PointHandler {
            id: pointer

            acceptedButtons: Qt.LeftButton
        }

        RoundedRectangle {
            objectName: "ground"
            anchors.fill: parent
            radius: 12
            isVertical: true
            topLeadingColor: SystemStyle.accent
            bottomTrailingColor: Qt.alpha(SystemStyle.accent, 0.8)
        }

        HStack {
            id: row

            anchors.centerIn: parent
            spacing: 8

            Symbol {
                objectName: "icon"
                visible: root.icon !== ""
                name: root.icon
                size: 14
                weight: Font.DemiBold
                color: "white"
                smooth: root.scale !== 1
            }

            Label {
                objectName: "title"
                text: root.title
                font: TextStyle.system(14, Font.DemiBold)
                color: "white"
                Accessible.ignored: true
            }
        }
    }
}
