import QtQuick
import QtQuick.Layouts
import Toolkit

// Pages of which one is shown, and a bar above to choose it with, by its title and symbol. The pages that are not shown
// stay as they are. Ctrl+Tab and Ctrl+Shift+Tab go on to the next page and back, from anywhere within.
FocusScope {
    id: root

    default property alias tabs: pages.data // of Tab
    property int currentIndex: 0

    implicitWidth: Math.max(bar.implicitWidth, pages.implicitWidth) + 2
    implicitHeight: bar.implicitHeight + pages.implicitHeight + 2

    // As many pages further, from the last one to the first.
    function advance(steps: int): void {
        const count = bar.segments.length;
        show((currentIndex + steps + count) % count);
    }

    // A page that disappears takes the keyboard's focus along: it goes to the bar then.
    function show(index: int): void {
        const hadFocus = activeFocus;
        currentIndex = index;
        if (hadFocus)
            bar.focusCurrent();
    }

    Keys.onPressed: event => {
        const isTab = event.key === Qt.Key_Tab || event.key === Qt.Key_Backtab;
        event.accepted = isTab && (event.modifiers & Qt.ControlModifier);
        if (event.accepted)
            advance(event.modifiers & Qt.ShiftModifier ? -1 : 1);
    }

    Rectangle {
        objectName: "frame"
        anchors.fill: parent
        anchors.topMargin: bar.height / 2
        radius: 5
        color: SystemStyle.groupBackground
        border.color: SystemStyle.separator
    }

    RoundedRectangle { // so that the frame's line ends at the bar, which is translucent
        anchors.fill: bar
        radius: 6
        color: SystemStyle.windowBackground
    }

    SegmentBar {
        id: bar

        objectName: "bar"
        anchors.horizontalCenter: parent.horizontalCenter
        width: Math.min(implicitWidth, root.width)
        segments: Array.from(pages.children, tab => ({
                    text: tab.title,
                    symbol: tab.symbol
                }))
        currentIndex: root.currentIndex
        segmentRole: Accessible.PageTab
        focus: true
        Accessible.role: Accessible.PageTabList
        onPicked: index => root.show(index)
    }

    StackLayout {
        id: pages

        anchors.fill: parent
        anchors.topMargin: bar.height
        anchors.margins: 1
        currentIndex: root.currentIndex
    }
}
