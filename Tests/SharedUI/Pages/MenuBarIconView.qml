import SharedUI
import Toolkit

HStack {
    spacing: 24

    MenuBarIconView {
        icon: "bell.fill"
        isActive: false
        color: SystemStyle.accent
    }

    MenuBarIconView {
        icon: "heart.fill"
        isActive: true
        color: SystemStyle.red
    }

    MenuBarIconView {
        icon: "bell.fill"
        isActive: true
        badge: 3
        color: SystemStyle.accent
    }

    MenuBarIconView {
        icon: "bell.fill"
        isActive: false
        badge: 128
        color: SystemStyle.accent
    }
}
