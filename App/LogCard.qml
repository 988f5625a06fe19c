import QtQuick
import QtQuick.Layouts
import Stirra
import Toolkit

// The newest entries of the action log, once there are any.
CaptionedCard {
    id: root

    required property StirraEngine engine

    caption: "Action Log"
    note: log.entryCount + " events"
    visible: log.entryCount > 0

    ActionLogModel {
        id: log

        engine: root.engine
    }

    Repeater {
        model: log

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
