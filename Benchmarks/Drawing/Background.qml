import SharedUI

MeshGradientBackground {}
