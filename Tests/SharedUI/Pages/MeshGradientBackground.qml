import SharedUI

MeshGradientBackground {
    implicitWidth: 320
    implicitHeight: 200
}
