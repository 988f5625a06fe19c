import QtQuick
import QtQuick.Layouts
import Toolkit

// A field's name and its text. `edited` tells what the user has made of it.
HStack {
    id: root

    required property string title
    property alias text: field.text
    property alias placeholder: field.placeholder

    signal edited(string wanted)

    Layout.fillWidth: true

    Label {
        text: root.title
        Accessible.ignored: true
        Layout.preferredWidth: 110
    }

    TextField {
        id: field

        title: root.title
        onEdited: wanted => root.edited(wanted)
        Layout.fillWidth: true
    }
}
