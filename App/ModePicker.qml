import QtQuick
import Stirra
import Toolkit

// One button per mode. While the engine is active a choice is ignored, without a sign of it.
CaptionedCard {
    id: root

    required property StirraEngine engine

    caption: "Mode"

    HStack {
        Repeater {
            model: MainViewText.modes

            ChoiceButton {
                required property var modelData

                objectName: modelData.name
                text: modelData.name
                icon: modelData.icon
                radius: 8
                verticalPadding: 7
                selectedWeight: Font.DemiBold
                otherWeight: Font.DemiBold
                isChecked: root.engine.mode === modelData.mode
                onClicked: {
                    if (!root.engine.isActive)
                        root.engine.mode = modelData.mode;
                }
            }
        }
    }
}
