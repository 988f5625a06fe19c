import QtQuick
import Toolkit

// A ground on which one can see how much shows through.
Grid {
    id: root

    readonly property int side: 16

    columns: Math.ceil(width / side)
    clip: true

    Repeater {
        model: root.columns * Math.ceil(root.height / root.side)

        Rectangle {
            required property int index
            readonly property bool isOdd: (index % root.columns + Math.floor(index / root.columns)) % 2 === 1

            width: root.side
            height: root.side
            color: isOdd ? SystemStyle.separator : "transparent"
        }
    }
}
