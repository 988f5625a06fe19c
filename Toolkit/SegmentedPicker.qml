import QtQuick
import QtQuick.Layouts
import Toolkit

// A title and, behind it, options side by side of which one is chosen, as in SegmentBar. Assistive technology is told a
// group of that title, with a radio button for each option.
//
// What it shows is `selection`, which the caller owns: `picked` tells the tag that the user wants it to be.
HStack {
    id: root

    required property string title
    // Of objects with a `text` that is shown and a `tag` that is not.
    required property var options
    required property var selection // the tag of the chosen option; of none: no option is chosen

    signal picked(var tag)

    Label {
        objectName: "title"
        text: root.title
        wrapMode: Text.Wrap
        horizontalAlignment: Text.AlignLeft
        Accessible.ignored: true
        Layout.fillWidth: true
    }

    SegmentBar {
        objectName: "segments"
        segments: root.options
        currentIndex: root.options.findIndex(option => option.tag === root.selection)
        Accessible.role: Accessible.Grouping
        Accessible.name: root.title
        onPicked: index => root.picked(root.options[index].tag)
    }
}
