import QtQuick
import Stirra
import Toolkit

// The logo, the title and the Start/Stop button.
Rectangle {
    id: root

    required property StirraEngine engine

    implicitHeight: row.implicitHeight + 20
    implicitWidth: row.implicitWidth + 2 * Metrics.padding
    color: Qt.tint(SystemStyle.windowBackground, SystemStyle.barMaterial)

    HStack {
        id: row

        anchors.fill: parent
        anchors.leftMargin: Metrics.padding
        anchors.rightMargin: Metrics.padding
        anchors.topMargin: 10
        anchors.bottomMargin: 10
        spacing: 12

        RoundedRectangle {
            objectName: "logo"
            implicitWidth: 28
            implicitHeight: 28
            radius: 8
            topLeadingColor: SystemStyle.purple
            bottomTrailingColor: SystemStyle.cyan

            Symbol {
                anchors.centerIn: parent
                name: "cursorarrow.and.square.on.square.dashed"
                size: 12
                weight: Font.Bold
                color: "white"
            }
        }

        VStack {
            spacing: 1

            Label {
                text: "Stirra"
                font: TextStyle.system(14, Font.Bold)
            }

            Label {
                text: root.engine.isActive ? "Keeping your Mac awake" : "Anti-sleep utility"
                font: TextStyle.system(9, Font.Normal)
                color: SystemStyle.secondaryLabel
            }
        }

        Spacer {}

        PlainButton {
            id: button

            objectName: "toggleButton"
            text: title.text
            radius: 7
            implicitWidth: content.implicitWidth + 32
            implicitHeight: content.implicitHeight + 12
            onClicked: root.engine.toggle()

            RoundedRectangle {
                anchors.fill: parent
                radius: button.radius
                color: root.engine.isActive ? SystemStyle.red : SystemStyle.green
            }

            HStack {
                id: content

                anchors.centerIn: parent
                spacing: 5

                Symbol {
                    name: root.engine.isActive ? "stop.fill" : "play.fill"
                    size: 12
                    weight: Font.Bold
                    color: "white"
                }

                Label {
                    id: title

                    text: root.engine.isActive ? "Stop" : "Start"
                    font: TextStyle.system(11, Font.DemiBold)
                    color: "white"
                    Accessible.ignored: true
                }
            }
        }
    }
}
