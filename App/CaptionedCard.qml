import QtQuick
import Stirra
import Toolkit

// The frame that the cards with a caption share: a caption row, and the content under it.
Card {
    id: root

    required property string caption
    // Shown at the trailing end of the caption's row.
    property string note
    default property alias content: stack.data

    implicitHeight: stack.implicitHeight + 28
    implicitWidth: stack.implicitWidth + 28

    VStack {
        id: stack

        anchors.fill: parent
        anchors.margins: 14

        HStack {
            Label {
                text: root.caption
                font: TextStyle.system(12, Font.Bold)
                color: SystemStyle.secondaryLabel
            }

            Spacer {}

            Label {
                text: root.note
                font: TextStyle.system(9, Font.Normal)
                color: SystemStyle.secondaryLabel
                visible: text !== ""
            }
        }
    }
}
