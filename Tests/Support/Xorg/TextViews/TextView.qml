import QtQuick

Flickable {
    id: view

    required property string content

    contentWidth: width
    contentHeight: text.implicitHeight

    Text {
        id: text

        text: view.content
        width: view.width
    }
}
