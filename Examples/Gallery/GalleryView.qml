import QtQuick.Layouts
import SharedUI
import StirraGallery

// The window's content: the pages under Control, and under Settings the family's settings with the gallery's own.
AppLaunchContainer {
    readonly property PreferredAppearance appearance: PreferredAppearance {
    }

    appTitle: "Gallery"
    settingsExtra: GallerySettingsView {
        Layout.fillWidth: true
    }
    onPreferencesSaved: appearance.apply()

    GalleryPages {
        Layout.fillWidth: true
        Layout.fillHeight: true
    }
}
