import QtQuick
import QtQuick.Layouts
import SharedUI
import Toolkit

// Something to do: a tile with its symbol, a title and a chevron. All of it is pressed, by pointer, key or assistive
// technology; `action` runs once for each click.
PlainButton {
    id: root

    required property string icon // a system symbol's name
    required property string title
    required property color color
    required property var action // a function without arguments

    text: title
    radius: 6
    implicitWidth: row.implicitWidth
    implicitHeight: row.implicitHeight + 2 * 6
    Layout.fillWidth: true

    onClicked: {
        const run = action;
        run();
    }

    HStack {
        id: row

        anchors.fill: parent
        anchors.topMargin: 6
        anchors.bottomMargin: 6
        spacing: 12

        IconTile {
            objectName: "tile"
            icon: root.icon
            tint: root.color
            groundOpacity: 0.15
        }

        Label {
            objectName: "title"
            text: root.title
            font: TextStyle.system(13, Font.Normal)
            elide: Text.ElideRight
            horizontalAlignment: Text.AlignLeft
            Accessible.ignored: true
            Layout.fillWidth: true
        }

        Symbol {
            objectName: "chevron"
            name: "chevron.right"
            size: 10
            color: SystemStyle.secondaryLabel
        }
    }
}
