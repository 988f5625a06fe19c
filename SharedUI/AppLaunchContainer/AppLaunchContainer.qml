import QtQuick
import QtQuick.Layouts
import SharedUI
import Toolkit

// The root view of a program's one window: its title above a "Control" tab with the program's own content, and a
// "Settings" tab with the form of the shared preferences and, below it, settings of the program's own.
//
//     AppLaunchContainer {
//         appTitle: "Gallery"
//         settingsExtra: MySettings {}
//
//         MyContent {}
//     }
//
// Both views are made once, by the caller, stay as they are while the other tab is shown, and are laid out as in a
// Layout: what does not fill stands in the centre of its tab, or at the leading edge below the form. The container acts
// on no preference; `preferencesSaved` says when a program that does should load the record.
Item {
    id: root

    required property string appTitle // shown as it stands, in every language
    default property Item mainContent
    property Item settingsExtra: null

    // In points, for the window around it. In a smaller one the container keeps this size.
    readonly property real minimumWidth: 420
    readonly property real minimumHeight: 560

    signal preferencesSaved

    implicitWidth: minimumWidth
    implicitHeight: minimumHeight
    Layout.minimumWidth: minimumWidth
    Layout.minimumHeight: minimumHeight
    LayoutMirroring.enabled: Application.layoutDirection === Qt.RightToLeft
    LayoutMirroring.childrenInherit: true

    VStack {
        objectName: "stack"
        width: Math.max(root.width, root.minimumWidth)
        height: Math.max(root.height, root.minimumHeight)
        spacing: 0

        Label {
            objectName: "title"
            text: root.appTitle
            font: TextStyle.system(TextStyle.title2.pixelSize, Font.DemiBold)
            wrapMode: Text.Wrap
            horizontalAlignment: Text.AlignLeft
            Accessible.role: Accessible.Heading
            Layout.fillWidth: true
            Layout.topMargin: 10
            Layout.leftMargin: Metrics.padding
            Layout.rightMargin: Metrics.padding
            Layout.bottomMargin: 6
        }

        TabView {
            objectName: "tabs"
            focus: true
            Layout.fillWidth: true
            Layout.fillHeight: true
            Layout.leftMargin: 8
            Layout.rightMargin: 8
            Layout.bottomMargin: 8

            Tab {
                objectName: "control"
                title: qsTr("Control")
                symbol: "slider.horizontal.3"

                VStack {
                    anchors.fill: parent

                    VStack {
                        objectName: "mainHolder"
                        data: [root.mainContent]
                        Layout.alignment: Qt.AlignCenter
                    }
                }
            }

            Tab {
                objectName: "settings"
                title: qsTr("Settings")
                symbol: "gearshape"

                ScrollView {
                    objectName: "scroll"
                    anchors.fill: parent
                    isIndicatorShown: true

                    Item {
                        width: parent.width
                        height: settingsStack.implicitHeight + 2 * 12

                        VStack {
                            id: settingsStack

                            objectName: "settingsStack"
                            x: 8
                            y: 12
                            width: parent.width - 2 * 8
                            spacing: 20

                            SharedAppSettingsFormView {
                                objectName: "form"
                                onPreferencesSaved: root.preferencesSaved()
                                Layout.fillWidth: true
                            }

                            VStack {
                                objectName: "extraHolder"
                                visible: root.settingsExtra !== null
                                data: root.settingsExtra ? [root.settingsExtra] : []
                            }
                        }
                    }
                }
            }
        }
    }
}
