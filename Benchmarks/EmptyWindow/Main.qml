import QtQuick

Window {
    width: 480
    height: 640
    visible: true
    title: "Empty"
}
