import SharedUI
import Toolkit

AppLaunchContainer {
    appTitle: "Gallery"
    settingsExtra: Switch {
        title: "Show hints"
    }

    VStack {
        spacing: Metrics.padding

        Label {
            text: "What the program does"
            font: TextStyle.headline
        }

        StatusBadge {
            status: StatusBadge.Inactive
            text: "Stopped"
        }
    }
}
