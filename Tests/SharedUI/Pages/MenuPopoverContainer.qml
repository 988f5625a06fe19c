import QtQuick
import SharedUI
import Toolkit

Item {
    implicitWidth: 320
    implicitHeight: popover.implicitHeight + 16

    MenuPopoverContainer {
        id: popover

        title: "Heart"

        HStack {
            StatColumn {
                icon: "heart.fill"
                value: "72"
                label: "Beats a minute"
            }

            Spacer {
            }

            StatColumn {
                icon: "clock.fill"
                value: "1h 04m"
                label: "Running"
            }

            Spacer {
            }

            StatColumn {
                icon: "bell.fill"
                value: "3"
                label: "Messages"
            }
        }

        Divider {
        }

        SettingsRow {
            icon: "bell.fill"
            title: "Notifications"
            subtitle: "When the rate changes"
            isOn: true
        }

        SettingsRow {
            icon: "eye.fill"
            title: "Show the rate"
            isOn: false
        }

        SliderRow {
            icon: "speedometer"
            title: "Rate"
            value: 72
            range: [30, 200]
            step: 1
        }

        StatRow {
            icon: "number"
            value: "12,304"
            label: "Beats so far"
        }

        ActionRow {
            icon: "power"
            title: "Quit"
            color: SystemStyle.red
            action: () => {}
        }
    }
}
