import QtQuick
import SharedUI
import Toolkit

// A card with the name of a theme.
ModernCardView {
    id: root

    required property string theme

    Label {
        text: "Preferred theme: " + root.theme
        font: TextStyle.headline
    }
}
