import QtQuick
import QtQuick.Layouts
import StirraGallery
import Toolkit

// The pages of all components, one of which is chosen at the leading edge, by its symbol alone where a popover would have
// no room beside the names. A page is made when it is first shown, and then stays as it was left.
HStack {
    id: root

    readonly property var pages: [
        {
            name: "card",
            symbol: "rectangle.on.rectangle"
        },
        {
            name: "background",
            symbol: "paintpalette.fill"
        },
        {
            name: "button",
            symbol: "play.fill"
        },
        {
            name: "badge",
            symbol: "checkmark.circle.fill"
        },
        {
            name: "menu",
            symbol: "heart.fill"
        },
        {
            name: "input",
            symbol: "keyboard"
        },
        {
            name: "sensors",
            symbol: "gauge"
        }
    ]
    readonly property bool isNarrow: width < 320 + 121
    readonly property int current: Math.max(0, pages.findIndex(page => page.name === GallerySettings.page))

    spacing: 0

    VStack {
        spacing: 2
        Accessible.role: Accessible.PageTabList
        Layout.fillWidth: false
        Layout.preferredWidth: root.isNarrow ? 32 : 112
        Layout.alignment: Qt.AlignTop
        Layout.margins: 4

        Repeater {
            model: root.pages

            PageButton {
                required property var modelData
                required property int index

                objectName: modelData.name
                text: root.titleOf(modelData.name)
                symbol: modelData.symbol
                isCurrent: index === root.current
                isTextShown: !root.isNarrow
                onClicked: GallerySettings.page = modelData.name
                Layout.fillWidth: true
            }
        }
    }

    Divider {
        isVertical: true
    }

    Item {
        Layout.fillWidth: true
        Layout.fillHeight: true

        Repeater {
            model: root.pages

            Loader {
                required property var modelData
                required property int index
                readonly property bool isCurrent: index === root.current

                anchors.fill: parent
                visible: isCurrent
                source: isCurrent || status === Loader.Ready ? Qt.resolvedUrl(root.fileOf(modelData.name)) : ""
            }
        }
    }

    function titleOf(name: string): string {
        return name.charAt(0).toUpperCase() + name.slice(1);
    }

    function fileOf(name: string): string {
        return `Pages/${titleOf(name)}Page.qml`;
    }
}
