import QtQuick
import Stirra
import Toolkit

// The three figures.
HStack {
    id: root

    required property StirraEngine engine

    spacing: 12

    StatCard {
        objectName: "actionsCard"
        icon: "number"
        value: root.engine.totalJiggles
        label: "Actions"
        color: SystemStyle.purple
    }

    StatCard {
        objectName: "uptimeCard"
        icon: "clock.fill"
        value: root.engine.formatDuration(root.engine.uptimeSeconds)
        label: "Uptime"
        color: SystemStyle.cyan
    }

    StatCard {
        objectName: "intervalStatCard"
        icon: "timer"
        value: MainViewText.formatInterval(root.engine.intervalSeconds)
        label: "Interval"
        color: SystemStyle.green
    }
}
