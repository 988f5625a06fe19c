import QtQuick
import Toolkit

// The frosted ground of every card. Nothing but the window lies behind it, so that it need not be blended at every
// repaint.
Rectangle {
    radius: 12
    color: Qt.tint(SystemStyle.windowBackground, SystemStyle.ultraThinMaterial)
}
