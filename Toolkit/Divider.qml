import QtQuick
import QtQuick.Layouts
import Toolkit

// A horizontal hairline.
Rectangle {
    implicitHeight: 1
    color: SystemStyle.separator
    Layout.fillWidth: true
}
