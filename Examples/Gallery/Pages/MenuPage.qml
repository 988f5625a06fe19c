import QtQuick
import QtQuick.Layouts
import StirraGallery
import Toolkit

// The components of popovers, and the switch that puts the heart into the desktop's panel.
ComponentPage {
    id: page

    title: "MenuComponents"
    stageHeight: popover.implicitHeight + 40
    stage: HeartPopover {
        id: popover

        anchors.centerIn: parent
        heart: HeartItem {
        }
    }

    Switch {
        title: "Heart in the menu bar"
        isOn: GallerySettings.isInMenuBar
        onToggled: wanted => GallerySettings.isInMenuBar = wanted
        Layout.fillWidth: true
    }
}
