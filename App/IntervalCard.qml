import QtQuick
import QtQuick.Layouts
import Stirra
import Toolkit

// One button per interval, and what happens in it. While the engine is active a choice is ignored, without a sign.
CaptionedCard {
    id: root

    required property StirraEngine engine

    caption: "Interval"

    HStack {
        Repeater {
            model: MainViewText.intervals

            ChoiceButton {
                required property real modelData

                objectName: text
                text: MainViewText.formatInterval(modelData)
                radius: 7
                verticalPadding: 6
                selectedWeight: Font.Bold
                otherWeight: Font.Medium
                isChecked: root.engine.intervalSeconds === modelData
                onClicked: {
                    if (!root.engine.isActive)
                        root.engine.intervalSeconds = modelData;
                }
            }
        }
    }

    HStack {
        spacing: 6
        Layout.topMargin: 4

        Label {
            text: "Every " + MainViewText.formatInterval(root.engine.intervalSeconds) + ", Stirra simulates:"
            font: TextStyle.system(10, Font.Normal)
            color: SystemStyle.secondaryLabel
        }

        Spacer {}

        Label {
            objectName: "lastAction"
            text: root.engine.lastAction
            font: TextStyle.system(10, Font.Medium)
            color: root.engine.isActive ? SystemStyle.green : SystemStyle.secondaryLabel
        }
    }
}
