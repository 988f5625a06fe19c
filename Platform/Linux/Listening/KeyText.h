// What keys type: by the layout, its levels, dead keys and compose sequences.
#pragma once

#include "Platform/Linux/Listening/XkbPointer.h"

#include <cstdint>
#include <string>
#include <vector>

namespace platform {

// A keyboard as the session sees it. Keys are xkb key codes, 8 above the kernel's. Compose sequences are
// those of the locale in the environment, or the user's own; a locale without any has those of en_US.UTF-8.
// Keeps no key but those that are down and the ones of a sequence that is not complete. One thread at a time.
class KeyText
{
public:
    // The modifiers and the layout that are in effect, as the protocols count them.
    struct Components
    {
        xkb_mod_mask_t depressed = 0;
        xkb_mod_mask_t latched = 0;
        xkb_mod_mask_t locked = 0;
        xkb_layout_index_t depressedLayout = 0;
        xkb_layout_index_t latchedLayout = 0;
        xkb_layout_index_t lockedLayout = 0;
    };

    struct Press
    {
        bool isModifier = false;
        std::u16string characters;
    };

    KeyText();

    [[nodiscard]] xkb_context *context() const { return context_.get(); }

    // Another layout; what is locked stays so, and keys that are down are down in it. An empty one changes
    // nothing.
    void setKeymap(XkbPointer<xkb_keymap> keymap);
    // Where somebody else follows the keys.
    void setComponents(const Components &components);
    // Locks a modifier by its name in the keymap, such as XKB_MOD_NAME_CAPS.
    void lock(const char *modifier);

    // What the press of a key types now; nothing without a layout. A step of a sequence.
    [[nodiscard]] Press press(xkb_keycode_t key);
    // Where nobody else follows the keys: one went down, or came up.
    void follow(xkb_keycode_t key, bool isDown);

private:
    void apply();
    void holdAgain();
    void keepLockedLayout();
    [[nodiscard]] std::u16string composed(xkb_keycode_t key, xkb_keysym_t symbol);
    [[nodiscard]] std::u16string plain(xkb_keycode_t key) const;

    XkbPointer<xkb_context> context_;
    XkbPointer<xkb_compose_state> compose_;
    XkbPointer<xkb_keymap> keymap_;
    XkbPointer<xkb_state> state_;
    Components components_;
    std::vector<xkb_keycode_t> held_; // as followed, in the order in which they went down
};

} // namespace platform
