#include "Platform/Linux/Wayland/Keymap.h"

#include "Platform/Linux/SilentKeyChoice.h"

#include <xkbcommon/xkbcommon.h>

#include <cstdlib>
#include <memory>

namespace platform {

namespace {

struct Unref
{
    void operator()(xkb_context *context) const { xkb_context_unref(context); }
    void operator()(xkb_keymap *keymap) const { xkb_keymap_unref(keymap); }
    void operator()(xkb_state *state) const { xkb_state_unref(state); }
    void operator()(char *text) const { std::free(text); } // NOLINT
};
template <class T> using Xkb = std::unique_ptr<T, Unref>;

Xkb<xkb_context> makeContext(xkb_context_flags flags)
{
    Xkb<xkb_context> context(xkb_context_new(flags));
    if (context) {
        xkb_context_set_log_level(context.get(), XKB_LOG_LEVEL_CRITICAL);
    }
    return context;
}

Xkb<xkb_keymap> keymapOf(const QByteArray &text)
{
    const auto context = makeContext(XKB_CONTEXT_NO_DEFAULT_INCLUDES);
    return context && !text.isEmpty()
               ? Xkb<xkb_keymap>(xkb_keymap_new_from_buffer(
                     context.get(), text.constData(), static_cast<std::size_t>(text.size()),
                     XKB_KEYMAP_FORMAT_TEXT_V1, XKB_KEYMAP_COMPILE_NO_FLAGS))
               : nullptr;
}

bool hasSymbol(xkb_keymap *keymap, xkb_keycode_t key)
{
    const xkb_keysym_t *symbols = nullptr;
    for (xkb_layout_index_t layout = 0; layout < xkb_keymap_num_layouts_for_key(keymap, key); ++layout) {
        for (xkb_level_index_t level = 0; level < xkb_keymap_num_levels_for_key(keymap, key, layout);
             ++level) {
            if (xkb_keymap_key_get_syms_by_level(keymap, key, layout, level, &symbols) > 0) {
                return true;
            }
        }
    }
    return false;
}

bool changesState(xkb_keymap *keymap, xkb_keycode_t key)
{
    const Xkb<xkb_state> state(xkb_state_new(keymap));
    return !state || xkb_state_update_key(state.get(), key, XKB_KEY_DOWN) != 0;
}

} // namespace

std::optional<std::vector<std::uint16_t>> keysWithMeaning(const QByteArray &keymapText)
{
    const auto keymap = keymapOf(keymapText);
    if (!keymap) {
        return std::nullopt;
    }
    std::vector<std::uint16_t> keys;
    for (auto key = lowestSilentKey; key <= highestSilentKey; ++key) {
        const xkb_keycode_t code = key + xkbCodeOfEvdev;
        if (hasSymbol(keymap.get(), code) || changesState(keymap.get(), code)) {
            keys.push_back(key);
        }
    }
    return keys;
}

QByteArray defaultKeymapText()
{
    const auto context = makeContext(XKB_CONTEXT_NO_FLAGS);
    const Xkb<xkb_keymap> keymap(
        context ? xkb_keymap_new_from_names(context.get(), nullptr, XKB_KEYMAP_COMPILE_NO_FLAGS) : nullptr);
    const Xkb<char> text(keymap ? xkb_keymap_get_as_string(keymap.get(), XKB_KEYMAP_FORMAT_TEXT_V1)
                                : nullptr);
    return {text.get()};
}

} // namespace platform
