import QtQuick
import Toolkit

// A line of text that the user edits, as long as wanted: it scrolls along. Clipboard, selection and undo as everywhere.
//
// What it shows is `text`, which the caller owns: `edited` tells what the user has made of it, at each change.
FocusScope {
    id: root

    required property string title // what assistive technology calls it
    property string text: ""
    property string placeholder: "" // shown while it is empty

    signal edited(string wanted)
    signal submitted // by Return

    implicitWidth: 160
    implicitHeight: Math.ceil(input.implicitHeight) + 2 * 4
    activeFocusOnTab: false // the text itself is

    onTextChanged: if (text !== input.text)
        input.text = text

    RoundedRectangle {
        objectName: "ground"
        anchors.fill: parent
        radius: 6
        color: SystemStyle.textBackground
        strokeColor: SystemStyle.separator
        strokeWidth: 1
    }

    Label {
        objectName: "placeholder"
        anchors.fill: parent
        leftPadding: 7
        rightPadding: 7
        verticalAlignment: Text.AlignVCenter
        horizontalAlignment: Text.AlignLeft
        visible: input.text === "" && input.preeditText === ""
        text: root.placeholder
        color: SystemStyle.secondaryLabel
        elide: Text.ElideRight
        Accessible.ignored: true
    }

    TextInput {
        id: input

        objectName: "input"
        anchors.fill: parent
        leftPadding: 7
        rightPadding: 7
        verticalAlignment: TextInput.AlignVCenter
        text: root.text
        font: TextStyle.body
        color: SystemStyle.label
        selectionColor: Qt.alpha(SystemStyle.accent, 0.4)
        selectedTextColor: SystemStyle.label
        renderType: TextInput.NativeRendering
        selectByMouse: true
        clip: true
        focus: true
        activeFocusOnTab: true
        Accessible.role: Accessible.EditableText
        Accessible.name: root.title
        onTextEdited: root.edited(text)
        onAccepted: root.submitted()
    }

    FocusRing {
        anchors.fill: parent
        active: input.activeFocus
        radius: 6
    }
}
