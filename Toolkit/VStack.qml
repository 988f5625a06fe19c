import QtQuick.Layouts
import Toolkit

// Children below one another. They stand at the leading edge unless their Layout.alignment says otherwise.
ColumnLayout {
    spacing: Metrics.spacing
}
