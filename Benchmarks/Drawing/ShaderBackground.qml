import QtQuick
import QtQuick.Shapes
import Qt5Compat.GraphicalEffects as Effects
import Toolkit

// The yardstick of the background of blobs: the same blobs as whoever has a GPU draws them, blurred by Qt's own shaders.
// Of its blurs it is the quick one, which computes in smaller and smaller pictures, and it blurs less: neither favours
// what is measured beside it.
Rectangle {
    id: root

    property real time: 0 // of the animation, in seconds

    color: "black"

    Timer {
        interval: 16
        running: true
        repeat: true
        onTriggered: root.time = (Date.now() / 1000 - 978307200) * 0.5
    }

    Item {
        id: canvas

        anchors.fill: parent
        visible: false
        clip: true
        layer.enabled: true

        Blob {
            color: SystemStyle.purple
        }

        Blob {
            turn: Math.PI / 2
            color: SystemStyle.blue
        }

        Blob {
            turn: Math.PI
            color: SystemStyle.cyan
        }

        Blob {
            turn: Math.PI * 3 / 2
            color: SystemStyle.green
        }
    }

    Effects.FastBlur {
        anchors.fill: parent
        source: canvas
        radius: 60
    }

    component Blob: Shape {
        id: blob

        property real turn: 0
        required property color color

        width: root.width * 0.8
        height: root.height * 0.8
        x: root.width * (0.5 + Math.cos(root.time + turn) * 0.3) - width / 2
        y: root.height * (0.5 + Math.sin(0.7 * root.time + turn) * 0.3) - height / 2

        ShapePath {
            strokeWidth: -1
            fillGradient: LinearGradient {
                x1: blob.width / 2
                y1: blob.height / 2
                x2: blob.width
                y2: blob.height

                GradientStop {
                    position: 0
                    color: Qt.alpha(blob.color, 0.6)
                }

                GradientStop {
                    position: 1
                    color: Qt.alpha(blob.color, 0)
                }
            }

            PathAngleArc {
                centerX: blob.width / 2
                centerY: blob.height / 2
                radiusX: blob.width / 2
                radiusY: blob.height / 2
                sweepAngle: 360
            }
        }
    }
}
