import QtQuick
import QtQuick.Layouts
import SharedUI
import StirraGallery
import Toolkit

// What the heart opens: every component for popovers, and what they set is the heart.
MenuPopoverContainer {
    id: root

    required property HeartItem heart

    title: "Heart"

    HStack {
        spacing: Metrics.padding
        Layout.fillWidth: true

        StatColumn {
            icon: "heart.fill"
            value: Math.round(root.heart.bpm)
            label: "beats a minute"
            Layout.fillWidth: true
            Layout.maximumWidth: root.width
        }

        StatColumn {
            icon: "timer"
            value: (60 / root.heart.bpm).toFixed(2)
            label: "seconds a beat"
            Layout.fillWidth: true
            Layout.maximumWidth: root.width
        }

        MenuBarIconView {
            icon: "heart.fill"
            isActive: root.heart.isBeating
            badge: root.heart.isBeating ? 8 : 0
            color: SystemStyle.red
            Layout.alignment: Qt.AlignVCenter
            Layout.rightMargin: 6
        }
    }

    SliderRow {
        icon: "heart.fill"
        title: "Heart rate"
        value: root.heart.bpm
        range: [30, 180]
        step: 5
        onMoved: wanted => root.heart.bpm = wanted
    }

    SettingsRow {
        icon: "play.fill"
        title: "Beating"
        subtitle: "The icon stands still otherwise"
        isOn: root.heart.isBeating
        onToggled: wanted => root.heart.isBeating = wanted
    }

    StatRow {
        icon: "number"
        label: "Frames a second"
        value: (8 * root.heart.bpm / 60).toFixed(1)
    }

    Divider {
    }

    ActionRow {
        icon: "rectangle.on.rectangle"
        title: "Show Gallery"
        color: SystemStyle.blue
        action: () => root.heart.openWindow()
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
