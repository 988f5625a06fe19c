import QtQuick
import QtQuick.Layouts
import StirraGallery
import Toolkit

// The components of popovers, around the heart in the desktop's panel, and the switch that puts it there.
ComponentPage {
    id: page

    property int closes: 0

    title: "MenuComponents"
    stageHeight: 20 + popover.implicitHeight + 70 // what its shadow needs
    stage: HeartPopover {
        id: popover

        anchors.horizontalCenter: parent.horizontalCenter
        y: 20
        onClose: page.closes += 1
    }

    Switch {
        title: "Heart in the menu bar"
        isOn: GallerySettings.isInMenuBar
        onToggled: wanted => GallerySettings.isInMenuBar = wanted
        Layout.fillWidth: true
    }

    Label {
        text: page.closes === 1 ? "Closed once" : `Closed ${page.closes} times`
        color: SystemStyle.secondaryLabel
    }
}
