import QtQuick
import Toolkit

// A translucent frosted card around any content, which stands inside with the default padding on all sides. The
// layers lie in this order: a shadow (black at 15 %, 4 points lower), the ultra-thin material, a white sheen from the
// top-leading to the bottom-trailing corner, the border, the content.
//
// Where the user wants less transparency the material is opaque, whatever its opacity.
//
// The shadow is that of the card's outline and is drawn around it only, as the translucent card would be darkened by
// what is below.
Item {
    id: root

    default property alias content: holder.data

    property real cornerRadius: 20
    // Kept, and without any effect on the drawing, on purpose.
    property real blurRadius: 20
    // Of the material alone, from 0 to 1. The `opacity` of an item is of the whole item, and cannot be given another
    // meaning.
    property real materialOpacity: 0.15
    property bool showBorder: true
    property real shadowRadius: 10

    implicitWidth: holder.implicitWidth + 2 * Metrics.padding
    implicitHeight: holder.implicitHeight + 2 * Metrics.padding

    DropShadow {
        objectName: "shadow"
        anchors.fill: parent
        cornerRadius: root.cornerRadius
        radius: root.shadowRadius
        offset: 4
        color: Qt.rgba(0, 0, 0, 0.15)
    }

    RoundedRectangle {
        objectName: "material"
        anchors.fill: parent
        radius: root.cornerRadius
        color: SystemStyle.ultraThinMaterial
        opacity: SystemStyle.reducesTransparency ? 1 : root.materialOpacity
    }

    RoundedRectangle {
        objectName: "sheen"
        anchors.fill: parent
        radius: root.cornerRadius
        topLeadingColor: Qt.rgba(1, 1, 1, 0.1)
        bottomTrailingColor: Qt.rgba(1, 1, 1, 0.05)
    }

    RoundedRectangle {
        objectName: "border"
        anchors.fill: parent
        anchors.margins: -1 // half of the stroke is outside, and ends inside of a whole pixel
        visible: root.showBorder
        margin: 0.5
        radius: root.cornerRadius + 0.5
        strokeWidth: 1
        strokeTopLeadingColor: Qt.rgba(1, 1, 1, 0.3)
        strokeBottomTrailingColor: Qt.rgba(1, 1, 1, 0.1)
    }

    VStack {
        id: holder

        objectName: "holder"
        anchors.fill: parent
        anchors.margins: Metrics.padding
    }
}
