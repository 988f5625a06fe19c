import QtQuick
import QtQuick.Layouts

// Takes what room is left in its stack.
Item {
    Layout.fillWidth: true
    Layout.fillHeight: true
}
