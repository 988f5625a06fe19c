import QtQuick
import QtQuick.Layouts
import Toolkit

// One of several choices: a chip that is tinted while it is the chosen one.
PlainButton {
    id: root

    required property int verticalPadding
    required property int selectedWeight
    required property int otherWeight
    property string icon

    readonly property color contentColor: isChecked ? SystemStyle.accent : SystemStyle.secondaryLabel

    isCheckable: true
    implicitWidth: Math.ceil(content.implicitWidth) + 20
    implicitHeight: content.height + 2 * verticalPadding
    Layout.fillWidth: true
    Layout.fillHeight: true
    Layout.maximumWidth: implicitWidth
    Layout.minimumWidth: 48

    RoundedRectangle {
        anchors.fill: parent
        radius: root.radius
        color: root.isChecked ? Qt.alpha(SystemStyle.accent, 0.2) : Qt.rgba(1, 1, 1, 0.04)
        strokeWidth: 1
        strokeColor: root.isChecked ? Qt.alpha(SystemStyle.accent, 0.4) : "transparent"
    }

    HStack {
        id: content

        x: 10
        y: root.verticalPadding
        width: root.width - 20
        spacing: 4

        Symbol {
            name: root.icon
            size: 10
            color: root.contentColor
            visible: root.icon !== ""
        }

        Label {
            text: root.text
            font: TextStyle.system(10, root.isChecked ? root.selectedWeight : root.otherWeight)
            color: root.contentColor
            wrapMode: Text.WordWrap
            Layout.fillWidth: true
            Accessible.ignored: true
        }
    }
}
