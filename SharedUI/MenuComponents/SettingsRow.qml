import QtQuick
import QtQuick.Layouts
import SharedUI
import Toolkit

// A setting that is on or off: a tile with its symbol, a title, a line below that where there is one, and a switch. What
// it shows is `isOn`, which the caller owns: `toggled` tells what the user wants it to be.
HStack {
    id: root

    required property string icon // a system symbol's name
    required property string title
    property string subtitle: "" // empty: there is none
    required property bool isOn

    signal toggled(bool wanted)

    spacing: 12
    Layout.fillWidth: true

    IconTile {
        objectName: "tile"
        icon: root.icon
        tint: SystemStyle.accent
        Layout.topMargin: 4
        Layout.bottomMargin: 4
    }

    VStack {
        objectName: "texts"
        spacing: 2
        Layout.topMargin: 4
        Layout.bottomMargin: 4
        Layout.fillWidth: true

        Label {
            objectName: "title"
            text: root.title
            font: TextStyle.system(13, Font.Normal)
            wrapMode: Text.Wrap
            horizontalAlignment: Text.AlignLeft
            Accessible.ignored: true // the switch says it
            Layout.fillWidth: true
        }

        Label {
            objectName: "subtitle"
            visible: root.subtitle !== ""
            text: root.subtitle
            font: TextStyle.system(11, Font.Normal)
            color: SystemStyle.secondaryLabel
            wrapMode: Text.Wrap
            horizontalAlignment: Text.AlignLeft
            Accessible.ignored: true // the switch says it
            Layout.fillWidth: true
        }
    }

    Switch {
        objectName: "switch"
        title: root.title
        description: root.subtitle
        isTitleShown: false
        isSmall: true
        isOn: root.isOn
        onToggled: wanted => root.toggled(wanted)
    }
}
