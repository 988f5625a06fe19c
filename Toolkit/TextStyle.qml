pragma Singleton

import QtQuick
import Toolkit

// The text styles that have a name, as fonts of the desktop's family. Views that state a size of their own use
// system() and monospaced().
QtObject {
    readonly property font title2: system(17, Font.Normal)
    readonly property font headline: system(13, Font.DemiBold)
    readonly property font body: system(13, Font.Normal)

    function system(size: int, weight: int): font {
        return SystemStyle.fontFamily ? SystemStyle.font(size, weight) : undefined;
    }

    function monospaced(size: int, weight: int): font {
        return SystemStyle.monospacedFamily ? SystemStyle.monospacedFont(size, weight) : undefined;
    }
}
