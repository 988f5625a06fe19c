import QtQuick
import QtQuick.Layouts
import SharedUI
import Toolkit

ModernCardView {
    Label {
        text: "Battery"
        font: TextStyle.headline
    }

    Label {
        text: "Charged to 80 %, to spare the cells."
        color: SystemStyle.secondaryLabel
        wrapMode: Text.WordWrap
        Layout.preferredWidth: 180
    }

    Divider {}

    HStack {
        Symbol {
            name: "clock.fill"
            color: SystemStyle.blue
        }

        Label {
            text: "3:24 h left"
            font: TextStyle.monospaced(12, Font.Normal)
        }

        Spacer {}

        StatusBadge {
            status: StatusBadge.Inactive
            text: "Idle"
        }
    }
}
