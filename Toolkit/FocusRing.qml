import QtQuick
import Toolkit

// The ring around what has the keyboard's focus, as wide as what it is anchored to and a little wider. It costs nothing
// until it is shown.
Loader {
    id: root

    property real radius: 0 // the corner radius of what it goes round

    anchors.margins: -3
    z: 1

    sourceComponent: RoundedRectangle {
        radius: root.radius + 3
        strokeColor: Qt.alpha(SystemStyle.accent, 0.6)
        strokeWidth: 2
    }
}
