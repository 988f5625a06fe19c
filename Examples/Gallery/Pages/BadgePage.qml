import QtQuick
import QtQuick.Layouts
import SharedUI
import StirraGallery
import Toolkit

ComponentPage {
    id: root

    property int status: StatusBadge.Active
    readonly property var statuses: ["Active", "Inactive", "Warning", "Error", "Processing"]

    title: "StatusBadge"
    stageHeight: 120
    stage: StatusBadge {
        id: badge

        anchors.centerIn: parent
        status: root.status
        text: "Running"
    }

    Label {
        text: "Status"
    }

    Flow {
        spacing: 6
        Accessible.role: Accessible.Grouping
        Accessible.name: "Status"
        Layout.fillWidth: true

        Repeater {
            model: root.statuses

            PlainButton {
                id: choice

                required property string modelData
                required property int index

                text: modelData
                isCheckable: true
                isChecked: index === root.status
                radius: height / 2
                width: sample.width + 4
                height: sample.height + 4
                Accessible.role: Accessible.RadioButton
                onClicked: root.status = index

                RoundedRectangle {
                    anchors.fill: parent
                    visible: choice.isChecked
                    radius: height / 2
                    strokeColor: SystemStyle.accent
                    strokeWidth: 1
                }

                StatusBadge {
                    id: sample

                    anchors.centerIn: parent
                    width: implicitWidth
                    height: implicitHeight
                    status: choice.index
                    text: choice.modelData
                }
            }
        }
    }

    WordField {
        title: "Text"
        text: badge.text
        onEdited: wanted => badge.text = wanted
    }
}
