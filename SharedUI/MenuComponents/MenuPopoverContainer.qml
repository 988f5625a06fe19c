import QtQuick
import QtQuick.Layouts
import Toolkit

// The frame of a popover: a title with a close button on frosted ground, a line, and the content, one below the other,
// with the default padding. It is 320 points wide whatever is in it; what is
// wider is cut off at its edge. `close` is emitted once for each click on the
// button. Its shadow (black at 20 %, 10 points lower) reaches up to 70 points beyond it.
Item {
    id: root

    default property alias content: holder.data

    required property string title
    property bool fillsWindow: false // without round corners and shadow: what is beyond its window is not seen

    signal close

    width: 320
    implicitWidth: 320
    implicitHeight: column.implicitHeight
    Layout.minimumWidth: 320
    Layout.maximumWidth: 320
    LayoutMirroring.enabled: Application.layoutDirection === Qt.RightToLeft
    LayoutMirroring.childrenInherit: true

    DropShadow {
        objectName: "shadow"
        visible: !root.fillsWindow
        anchors.fill: parent
        cornerRadius: 12
        radius: 20
        offset: 10
        color: Qt.rgba(0, 0, 0, 0.2)
    }

    RoundedRectangle {
        objectName: "ground"
        anchors.fill: parent
        radius: root.fillsWindow ? 0 : 12
        color: SystemStyle.windowBackground
    }

    ColumnLayout {
        id: column

        anchors.fill: parent
        spacing: 0
        clip: true

        Item {
            objectName: "header"
            implicitHeight: heading.implicitHeight + 2 * Metrics.padding
            clip: true
            Layout.fillWidth: true

            // Round at the top only: its lower corners are cut off.
            RoundedRectangle {
                objectName: "material"
                width: parent.width
                height: parent.height + radius
                radius: root.fillsWindow ? 0 : 12
                color: SystemStyle.ultraThinMaterial
            }

            HStack {
                id: heading

                anchors.fill: parent
                anchors.margins: Metrics.padding

                Label {
                    objectName: "title"
                    text: root.title
                    font: TextStyle.system(13, Font.DemiBold)
                    elide: Text.ElideRight
                    horizontalAlignment: Text.AlignLeft
                    Accessible.role: Accessible.Heading
                    Layout.fillWidth: true
                }

                PlainButton {
                    objectName: "closeButton"
                    text: qsTr("Close")
                    radius: width / 2
                    implicitWidth: cross.implicitWidth
                    implicitHeight: cross.implicitHeight
                    onClicked: root.close()

                    Symbol {
                        id: cross

                        name: "xmark.circle.fill"
                        size: 16
                        color: SystemStyle.secondaryLabel
                    }
                }
            }
        }

        Divider {
        }

        VStack {
            id: holder

            objectName: "holder"
            Layout.fillWidth: true
            Layout.maximumWidth: root.width // and not as wide as the content only
            Layout.margins: Metrics.padding
        }
    }
}
