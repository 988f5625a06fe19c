import QtQuick
import StirraGallery
import Toolkit

// The gallery in the panel: the heart, where the user wants it, and the popover under it.
QtObject {
    id: root

    required property bool isWanted // whatever the settings say

    readonly property Binding shown: Binding {
        target: Heart
        property: "isShown"
        value: root.isWanted || GallerySettings.isInMenuBar
    }

    readonly property Connections clicks: Connections {
        target: Heart

        function onClicked(place: point, token: string): void {
            if (root.popover.visible)
                root.popover.close();
            else
                root.popover.open(place, token);
        }

        // The gallery cannot have the input that a hanging popover keeps. One that is an ordinary window closes
        // when the gallery has the focus, which it hands on until then.
        function onGalleryWanted(): void {
            if (root.popover.isHanging)
                root.popover.close();
        }
    }

    readonly property PopoverWindow popover: PopoverWindow {
        title: "Heart"
        content: HeartPopover {
            fillsWindow: !root.popover.hasShadow
            onClose: root.popover.close()
        }

        // What tells it from whatever is behind it.
        Rectangle {
            anchors.fill: parent
            visible: root.popover.isHanging && !root.popover.hasShadow
            z: 1
            color: "transparent"
            border.color: SystemStyle.separator
        }
    }
}
