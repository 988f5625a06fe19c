import SharedUI
import Toolkit

// With and without a symbol, and one at the size that it has while it is held down.
HStack {
    AnimatedButton {
        title: "Start Again"
        icon: "play.fill"
        action: () => {}
    }

    AnimatedButton {
        title: "Done"
        action: () => {}
    }

    AnimatedButton {
        title: "Stop"
        icon: "stop.fill"
        action: () => {}
        scale: 0.95
    }
}
