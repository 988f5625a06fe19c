import SharedUI

MeshGradientBackground {
    implicitWidth: 400
    implicitHeight: 250
}
