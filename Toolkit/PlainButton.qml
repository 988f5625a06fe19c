import QtQuick
import Toolkit

// A button without any look of its own: what it shows is its children. It is pressed by pointer, by Space or Return,
// and through the accessibility tree; a ring shows the keyboard's focus.
FocusScope {
    id: root

    // What assistive technology calls the button: its visible text.
    required property string text
    property bool isCheckable: false
    property bool isChecked: false
    // The corner radius of what the button shows, which the ring follows.
    property real radius: 0
    readonly property bool isPressed: pointer.pressed

    signal clicked

    activeFocusOnTab: true
    opacity: isPressed ? 0.75 : 1

    Accessible.role: Accessible.Button
    Accessible.name: text
    Accessible.checkable: isCheckable
    Accessible.checked: isChecked
    Accessible.focusable: true
    Accessible.focused: activeFocus
    Accessible.onPressAction: clicked()

    Keys.onSpacePressed: event => pressByKey(event)
    Keys.onReturnPressed: event => pressByKey(event)
    Keys.onEnterPressed: event => pressByKey(event)

    function pressByKey(event: var): void {
        event.accepted = !event.isAutoRepeat;
        if (!event.isAutoRepeat)
            clicked();
    }

    TapHandler {
        id: pointer

        gesturePolicy: TapHandler.ReleaseWithinBounds
        onTapped: root.clicked()
    }

    FocusRing {
        anchors.fill: parent
        active: root.activeFocus
        radius: root.radius
    }
}
