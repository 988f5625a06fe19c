import QtQuick.Layouts
import Toolkit

// Children side by side, centred on one another's height.
RowLayout {
    spacing: Metrics.spacing
}
