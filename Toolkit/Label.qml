import QtQuick
import Toolkit

// A text as the desktop writes it: in the body style and the primary colour unless told otherwise, in the
// accessibility tree as it stands.
Text {
    color: SystemStyle.label
    font: TextStyle.body
    textFormat: Text.PlainText

    Accessible.role: Accessible.StaticText
    Accessible.name: text
}
