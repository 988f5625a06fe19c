import QtQuick
import Toolkit

// A text as the desktop writes it: in the body style and the primary colour unless told otherwise, in the
// accessibility tree as it stands. With OpenGL too, its glyphs are those of the font's own renderer, hinted, and not
// scaled from a drawing that all sizes share.
Text {
    color: SystemStyle.label
    font: TextStyle.body
    textFormat: Text.PlainText
    renderType: Text.NativeRendering

    Accessible.role: Accessible.StaticText
    Accessible.name: text
}
