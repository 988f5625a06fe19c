import QtQuick.Layouts
import SharedUI
import Toolkit

GridLayout {
    columns: 3
    columnSpacing: Metrics.spacing
    rowSpacing: Metrics.spacing

    StatusBadge {
        status: StatusBadge.Active
        text: "Running"
    }

    StatusBadge {
        status: StatusBadge.Inactive
        text: "Stopped"
    }

    StatusBadge {
        status: StatusBadge.Warning
        text: "Battery low"
    }

    StatusBadge {
        status: StatusBadge.Error
        text: "No connection"
    }

    StatusBadge {
        status: StatusBadge.Processing
        text: "Synchronising"
    }
}
