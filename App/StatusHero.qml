import QtQuick
import QtQuick.Layouts
import Stirra
import Toolkit

// The ring and the status in words.
Card {
    id: root

    required property StirraEngine engine

    radius: 14
    implicitHeight: stack.implicitHeight + 40

    VStack {
        id: stack

        anchors.left: parent.left
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        spacing: 16

        StatusRing {
            objectName: "ring"
            isActive: root.engine.isActive
            Layout.alignment: Qt.AlignHCenter
        }

        VStack {
            spacing: 4
            Layout.fillWidth: true

            Label {
                text: root.engine.isActive ? "Active" : "Inactive"
                font: TextStyle.system(18, Font.Bold)
                color: root.engine.isActive ? SystemStyle.green : SystemStyle.secondaryLabel
                Layout.alignment: Qt.AlignHCenter
            }

            Label {
                text: root.engine.isActive ? "Uptime: " + root.engine.formatDuration(root.engine.uptimeSeconds)
                                           : "Click Start to begin"
                font: TextStyle.system(12, Font.Normal)
                color: SystemStyle.secondaryLabel
                horizontalAlignment: Text.AlignHCenter
                Layout.fillWidth: true
                Layout.preferredWidth: 1
            }
        }
    }
}
