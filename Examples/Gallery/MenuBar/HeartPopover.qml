import QtQuick
import QtQuick.Layouts
import SharedUI
import StirraGallery
import Toolkit

// What the heart opens: every component for popovers, and what they set is the heart.
MenuPopoverContainer {
    id: root

    title: "Heart"

    HStack {
        spacing: Metrics.padding
        Layout.fillWidth: true

        StatColumn {
            icon: "heart.fill"
            value: Math.round(Heart.bpm)
            label: "beats a minute"
            Layout.fillWidth: true
        }

        StatColumn {
            icon: "timer"
            value: NumberText.formatted("%.2f", 60 / Heart.bpm)
            label: "seconds a beat"
            Layout.fillWidth: true
        }

        MenuBarIconView {
            icon: "heart.fill"
            isActive: Heart.isBeating
            badge: Heart.isBeating ? 8 : 0
            color: SystemStyle.red
            Layout.alignment: Qt.AlignVCenter
            Layout.rightMargin: 6
        }
    }

    SliderRow {
        icon: "heart.fill"
        title: "Heart rate"
        value: Heart.bpm
        range: [30, 180]
        step: 5
        onMoved: wanted => Heart.bpm = wanted
    }

    SettingsRow {
        icon: "play.fill"
        title: "Beating"
        subtitle: "The icon stands still otherwise"
        isOn: Heart.isBeating
        onToggled: wanted => Heart.isBeating = wanted
    }

    StatRow {
        icon: "number"
        label: "Frames a second"
        value: NumberText.formatted("%.1f", 8 * Heart.bpm / 60)
    }

    Divider {
    }

    ActionRow {
        icon: "rectangle.on.rectangle"
        title: "Show Gallery"
        color: SystemStyle.blue
        action: () => Heart.galleryWanted()
    }

    HStack {
        Layout.fillWidth: true

        ActionRow {
            icon: "xmark.circle.fill"
            title: "Quit"
            color: SystemStyle.red
            action: () => Qt.quit()
        }

        ShortcutBadge {
            keys: ["Ctrl", "Q"]
        }
    }
}
