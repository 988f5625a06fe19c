import QtQuick
import Toolkit

// One line of text that shrinks, down to `minimumScale` of its size, before it is cut short.
Label {
    property real minimumScale: 0.5

    fontSizeMode: Text.HorizontalFit
    minimumPixelSize: Math.max(1, Math.round(font.pixelSize * minimumScale))
    maximumLineCount: 1
    elide: Text.ElideRight
    horizontalAlignment: Text.AlignHCenter
}
