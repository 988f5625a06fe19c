import QtQuick
import QtQuick.Layouts
import Stirra
import Toolkit

// The content of the main window: the whole state of the one engine, which it owns.
Rectangle {
    id: root

    readonly property StirraEngine engine: StirraEngine {}
    readonly property ActionLogModel actionLog: ActionLogModel {
        engine: root.engine
    }

    implicitWidth: 400
    implicitHeight: 520
    color: SystemStyle.windowBackground

    Shortcut {
        sequences: [StandardKey.Quit]
        context: Qt.ApplicationShortcut
        onActivated: Qt.quit()
    }

    Shortcut {
        sequences: [StandardKey.Close]
        onActivated: root.Window.window.close()
    }

    VStack {
        anchors.fill: parent
        spacing: 0

        HeaderBar {
            objectName: "headerBar"
            engine: root.engine
            Layout.fillWidth: true
        }

        Divider {}

        ScrollView {
            objectName: "scrollView"
            Layout.fillWidth: true
            Layout.fillHeight: true

            VStack {
                x: Metrics.padding
                y: Metrics.padding
                width: parent.width - 2 * Metrics.padding
                spacing: 14

                StatusHero {
                    objectName: "statusHero"
                    engine: root.engine
                    Layout.fillWidth: true
                }

                ModePicker {
                    objectName: "modePicker"
                    engine: root.engine
                    Layout.fillWidth: true
                }

                IntervalCard {
                    objectName: "intervalCard"
                    engine: root.engine
                    Layout.fillWidth: true
                }

                StatsGrid {
                    objectName: "statsGrid"
                    engine: root.engine
                    Layout.fillWidth: true
                }

                Loader {
                    active: root.actionLog.entryCount > 0
                    visible: active
                    Layout.fillWidth: true

                    sourceComponent: LogCard {
                        objectName: "logCard"
                        log: root.actionLog
                    }
                }
            }
        }
    }
}
