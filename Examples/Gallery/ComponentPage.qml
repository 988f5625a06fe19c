import QtQuick
import QtQuick.Layouts
import StirraGallery
import Toolkit

// A page of the gallery: a component on a stage, and below it its fields to play with.
ScrollView {
    id: root

    required property string title
    default property alias fields: fieldList.data
    property alias stage: stageHolder.data
    property int stageHeight: 200

    isIndicatorShown: true

    VStack {
        width: root.width
        spacing: 12

        Label {
            text: root.title
            font: TextStyle.headline
            Accessible.role: Accessible.Heading
            Layout.leftMargin: Metrics.padding
            Layout.topMargin: 8
        }

        Item {
            id: stageHolder

            clip: true
            Layout.fillWidth: true
            Layout.preferredHeight: root.stageHeight

            Chequers {
                anchors.fill: parent
                visible: GallerySettings.isChequered
            }
        }

        VStack {
            id: fieldList

            Layout.fillWidth: true
            Layout.leftMargin: Metrics.padding
            Layout.rightMargin: Metrics.padding
            Layout.bottomMargin: Metrics.padding
        }
    }
}
