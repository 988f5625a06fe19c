import QtQuick
import Toolkit

// The frosted ground of every card.
Rectangle {
    radius: 12
    color: SystemStyle.ultraThinMaterial
}
