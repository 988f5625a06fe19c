import QtQuick.Layouts
import StirraGallery
import Toolkit

// What the gallery lets its user choose beside the family's settings.
VStack {
    spacing: 16

    Label {
        text: "Gallery"
        font: TextStyle.headline
    }

    Switch {
        title: "Chequered ground"
        isOn: GallerySettings.isChequered
        onToggled: wanted => GallerySettings.isChequered = wanted
        Layout.fillWidth: true
    }
}
