import QtQuick
import QtQuick.Layouts
import SharedUI
import StirraGallery
import Toolkit

ComponentPage {
    title: "ModernCardView"
    stage: ModernCardView {
        id: card

        anchors.centerIn: parent

        Label {
            text: "Good morning"
            font: TextStyle.headline
        }

        Label {
            text: "Three things are left for today."
            color: SystemStyle.secondaryLabel
        }
    }

    NumberField {
        title: "Corner radius"
        maximumValue: 40
        stepSize: 1
        value: card.cornerRadius
        onMoved: wanted => card.cornerRadius = wanted
    }

    NumberField {
        title: "Blur radius"
        maximumValue: 40
        stepSize: 1
        value: card.blurRadius
        onMoved: wanted => card.blurRadius = wanted
    }

    NumberField {
        title: "Opacity"
        stepSize: 0.05
        decimals: 2
        value: card.materialOpacity
        onMoved: wanted => card.materialOpacity = wanted
    }

    NumberField {
        title: "Shadow radius"
        maximumValue: 40
        stepSize: 1
        value: card.shadowRadius
        onMoved: wanted => card.shadowRadius = wanted
    }

    Switch {
        title: "Border"
        isOn: card.showBorder
        onToggled: wanted => card.showBorder = wanted
        Layout.fillWidth: true
    }
}
