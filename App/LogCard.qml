import QtQuick
import QtQuick.Layouts
import Stirra
import Toolkit

// The newest entries of the action log.
CaptionedCard {
    id: root

    required property ActionLogModel log

    caption: "Action Log"
    note: log.entryCount + " events"

    Repeater {
        model: root.log

        HStack {
            required property string timeText
            required property string message

            objectName: "logRow"
            Layout.topMargin: 2
            Layout.bottomMargin: 2

            Label {
                text: parent.timeText
                font: TextStyle.monospaced(9, Font.Normal)
                color: SystemStyle.secondaryLabel
            }

            Label {
                text: parent.message
                font: TextStyle.system(10, Font.Medium)
            }

            Spacer {}
        }
    }
}
