import QtQuick
import StirraGallery
import Toolkit

// The gallery in the panel: the heart, and the popover under it. The popover closes by its button, by Escape, and when the
// user turns to anything else.
QtObject {
    id: root

    readonly property HeartItem heart: HeartItem {
        isShown: GallerySettings.isInMenuBar
        onClicked: (place, token) => root.toggle(place, token)
    }

    readonly property Window popover: Window {
        objectName: "popover"
        title: "Heart"
        flags: root.heart.placesWindows() ? Qt.Tool | Qt.FramelessWindowHint : Qt.Dialog
        transientParent: null
        width: content.implicitWidth
        height: content.implicitHeight
        color: SystemStyle.windowBackground
        onActiveChanged: if (!active)
            close()

        HeartPopover {
            id: content

            heart: root.heart
            focus: true
            onClose: root.popover.close()
            Keys.onEscapePressed: root.popover.close()
        }
    }

    function toggle(place: point, token: string): void {
        if (popover.visible)
            popover.close();
        else
            heart.openPopover(popover, place, token);
    }
}
