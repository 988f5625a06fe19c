import QtQuick
import QtQuick.Layouts
import Toolkit

// A hairline between what is above one another, or side by side.
Rectangle {
    property bool isVertical: false

    implicitWidth: 1
    implicitHeight: 1
    color: SystemStyle.separator
    Layout.fillWidth: !isVertical
    Layout.fillHeight: isVertical
}
