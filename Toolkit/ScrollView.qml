import QtQuick
import Toolkit

// A vertical scroll view, without an indicator unless told otherwise. It scrolls by wheel, touch and the Page and arrow
// keys, and keeps the item that has the keyboard's focus in view.
Flickable {
    id: root

    default property alias content: holder.data
    property bool isIndicatorShown: false // where there is something to scroll
    readonly property Item focusedItem: Window.activeFocusItem

    contentWidth: width
    contentHeight: holder.childrenRect.height
    boundsBehavior: Flickable.StopAtBounds
    flickableDirection: Flickable.VerticalFlick
    clip: true

    Keys.onPressed: event => {
        const step = ({
            [Qt.Key_PageUp]: -height,
            [Qt.Key_PageDown]: height,
            [Qt.Key_Up]: -40,
            [Qt.Key_Down]: 40,
            [Qt.Key_Home]: -contentHeight,
            [Qt.Key_End]: contentHeight
        })[event.key];
        event.accepted = step !== undefined;
        if (event.accepted)
            scrollTo(contentY + step);
    }

    onFocusedItemChanged: reveal(focusedItem)

    function scrollTo(y: real): void {
        contentY = Math.max(0, Math.min(y, contentHeight - height));
    }

    function reveal(item: Item): void {
        if (!item || !contains(holder, item))
            return;
        const top = item.mapToItem(holder, 0, 0).y;
        if (top < contentY)
            scrollTo(top - Metrics.padding);
        else if (top + item.height > contentY + height)
            scrollTo(top + item.height + Metrics.padding - height);
    }

    function contains(ancestor: Item, item: Item): bool {
        for (let i = item; i; i = i.parent) {
            if (i === ancestor)
                return true;
        }
        return false;
    }

    Item {
        id: holder

        width: root.width
        height: childrenRect.height
    }

    RoundedRectangle {
        objectName: "indicator"
        parent: root
        anchors.right: parent.right
        anchors.rightMargin: 2
        y: root.visibleArea.yPosition * root.height + 2
        z: 1
        visible: root.isIndicatorShown && root.contentHeight > root.height
        width: 6
        height: root.visibleArea.heightRatio * root.height - 4
        radius: width / 2
        color: SystemStyle.secondaryLabel
        opacity: drag.active ? 1 : 0.6

        DragHandler {
            id: drag

            property real start: 0

            target: null
            margin: 4
            onActiveChanged: start = root.contentY
            onActiveTranslationChanged: root.scrollTo(start + activeTranslation.y / root.visibleArea.heightRatio)
        }
    }
}
