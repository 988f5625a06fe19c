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
            title: "Card",
            symbol: "rectangle.on.rectangle"
        },
        {
            name: "background",
            title: "Background",
            symbol: "paintpalette.fill"
        },
        {
            name: "button",
            title: "Button",
            symbol: "play.fill"
        },
        {
            name: "badge",
            title: "Badge",
            symbol: "checkmark.circle.fill"
        },
        {
            name: "menu",
            title: "Menu",
            symbol: "heart.fill"
        },
        {
            name: "input",
            title: "Input",
            symbol: "keyboard"
        },
        {
            name: "sensors",
            title: "Sensors",
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
                text: modelData.title
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
                source: isCurrent || status === Loader.Ready ? Qt.resolvedUrl(`Pages/${modelData.title}Page.qml`) : ""
            }
        }
    }
}
