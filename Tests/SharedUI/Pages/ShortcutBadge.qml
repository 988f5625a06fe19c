import SharedUI

ShortcutBadge {
    keys: ["⌘", "⇧", "P"]
}
