import QtQuick
import SharedUI
import Toolkit

// Components at rest: none is pressed, pulses or drifts.
Rectangle {
    color: SystemStyle.windowBackground

    VStack {
        anchors.centerIn: parent

        Repeater {
            model: 3

            ModernCardView {
                StatusBadge {
                    status: StatusBadge.Inactive
                    text: "Inactive"
                }

                StatusBadge {
                    status: StatusBadge.Warning
                    text: "Warning"
                }

                StatusBadge {
                    status: StatusBadge.Error
                    text: "Error"
                }
            }
        }

        AnimatedButton {
            title: "Press"
            icon: "play.fill"
            action: () => {}
        }
    }
}
