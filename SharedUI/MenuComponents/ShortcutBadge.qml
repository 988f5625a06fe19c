import QtQuick
import Toolkit

// The keys of a shortcut as caps, one by one, with a "+" between two: keys: ["⌘", "⇧", "P"]. They stand from left to right
// in every language, as they are pressed.
HStack {
    id: root

    required property list<string> keys

    spacing: 0
    layoutDirection: Qt.LeftToRight
    LayoutMirroring.enabled: false
    LayoutMirroring.childrenInherit: true
    Accessible.role: Accessible.StaticText
    Accessible.name: Array.from(keys).join("+")

    Repeater {
        model: root.keys.length

        HStack {
            id: key

            required property int index

            spacing: 0

            Label {
                objectName: "separator"
                visible: key.index > 0
                text: "+"
                font: TextStyle.system(10, Font.Normal)
                color: SystemStyle.secondaryLabel
                leftPadding: 2
                rightPadding: 2
                Accessible.ignored: true
            }

            RoundedRectangle {
                objectName: "cap"
                implicitWidth: name.implicitWidth
                implicitHeight: name.implicitHeight
                radius: 4
                color: SystemStyle.controlFace

                RoundedRectangle {
                    anchors.fill: parent
                    anchors.margins: -1 // half of the stroke is outside, and ends inside of a whole pixel
                    margin: 0.5
                    radius: 4.5
                    strokeColor: Qt.alpha(SystemStyle.secondaryLabel, 0.2 * SystemStyle.secondaryLabel.a)
                    strokeWidth: 1
                }

                Label {
                    id: name

                    objectName: "key"
                    text: root.keys[key.index] ?? ""
                    font: TextStyle.system(10, Font.Medium)
                    leftPadding: 5
                    rightPadding: 5
                    topPadding: 2
                    bottomPadding: 2
                    Accessible.ignored: true
                }
            }
        }
    }
}
