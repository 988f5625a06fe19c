import QtQuick
import QtQuick.Layouts
import Toolkit

// An entry of the list of pages.
PlainButton {
    id: root

    required property string symbol
    required property bool isCurrent
    property bool isTextShown: true

    implicitWidth: row.implicitWidth + 2 * 8
    implicitHeight: 26
    radius: 6
    Accessible.role: Accessible.PageTab
    Accessible.selectable: true
    Accessible.selected: isCurrent

    RoundedRectangle {
        anchors.fill: parent
        visible: root.isCurrent
        radius: root.radius
        color: SystemStyle.accent
    }

    HStack {
        id: row

        anchors.fill: parent
        anchors.leftMargin: 8
        anchors.rightMargin: 8
        spacing: 6

        Item {
            Layout.preferredWidth: 16
            Layout.fillHeight: true

            Symbol {
                anchors.centerIn: parent
                name: root.symbol
                size: 12
                color: root.isCurrent ? "white" : SystemStyle.accent
            }
        }

        ShrinkingLabel {
            visible: root.isTextShown
            text: root.text
            horizontalAlignment: Text.AlignLeft
            color: root.isCurrent ? "white" : SystemStyle.label
            Accessible.ignored: true
            Layout.fillWidth: true
        }
    }
}
