import QtQuick
import SharedUI

Item {
    implicitWidth: 388 // as in the smallest window
    implicitHeight: form.implicitHeight

    SharedAppSettingsFormView {
        id: form

        width: parent.width
    }
}
