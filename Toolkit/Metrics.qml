pragma Singleton

import QtQuick

// The default measures of the family's views, in points.
QtObject {
    readonly property int padding: 16
    readonly property int spacing: 8
}
