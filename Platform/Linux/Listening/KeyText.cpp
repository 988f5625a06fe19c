#include "Platform/Linux/Listening/KeyText.h"

#include <QByteArray>
#include <QString>

#include <array>
#include <utility>

namespace platform {

namespace {

constexpr auto anyLocaleWithSequences = "en_US.UTF-8";

QByteArray localeName()
{
    for (const auto *variable : {"LC_ALL", "LC_CTYPE", "LANG"}) {
        if (!qEnvironmentVariableIsEmpty(variable)) {
            return qgetenv(variable);
        }
    }
    return "C";
}

XkbPointer<xkb_compose_table> composeTable(xkb_context *context, const char *locale)
{
    return XkbPointer<xkb_compose_table>(
        xkb_compose_table_new_from_locale(context, locale, XKB_COMPOSE_COMPILE_NO_FLAGS));
}

XkbPointer<xkb_compose_state> composeState(xkb_context *context)
{
    auto table = composeTable(context, localeName().constData());
    if (!table) {
        table = composeTable(context, anyLocaleWithSequences);
    }
    return XkbPointer<xkb_compose_state>(
        table ? xkb_compose_state_new(table.get(), XKB_COMPOSE_STATE_NO_FLAGS) : nullptr);
}

// Those that X's own libraries count as modifiers.
bool isModifier(xkb_keysym_t symbol)
{
    return (symbol >= XKB_KEY_Shift_L && symbol <= XKB_KEY_Hyper_R) ||
           (symbol >= XKB_KEY_ISO_Lock && symbol <= XKB_KEY_ISO_Level5_Lock) ||
           symbol == XKB_KEY_Mode_switch || symbol == XKB_KEY_Num_Lock;
}

using TextBuffer = std::array<char, 256>; // xkbcommon's longest text has 255 bytes

std::u16string fromUtf8(const TextBuffer &text)
{
    return QString::fromUtf8(text.data()).toStdU16String();
}

} // namespace

KeyText::KeyText()
    : context_(xkb_context_new(XKB_CONTEXT_NO_DEFAULT_INCLUDES))
{
    if (context_) {
        xkb_context_set_log_level(context_.get(), XKB_LOG_LEVEL_CRITICAL);
        compose_ = composeState(context_.get());
    }
}

void KeyText::setKeymap(XkbPointer<xkb_keymap> keymap)
{
    if (!keymap) {
        return;
    }
    if (state_) {
        components_.locked = xkb_state_serialize_mods(state_.get(), XKB_STATE_MODS_LOCKED);
        keepLockedLayout();
    }
    state_.reset(xkb_state_new(keymap.get()));
    keymap_ = std::move(keymap);
    if (held_.empty()) {
        apply();
    } else {
        holdAgain();
    }
}

// A keymap with fewer layouts, such as one that some program types with, knows only the ones it has. The
// user's own comes back after it, with the layout that was locked there.
void KeyText::keepLockedLayout()
{
    if (xkb_keymap_num_layouts(keymap_.get()) > components_.lockedLayout) {
        components_.lockedLayout = xkb_state_serialize_layout(state_.get(), XKB_STATE_LAYOUT_LOCKED);
    }
}

// Before anything is locked: a key that locks would undo that when it comes up.
void KeyText::holdAgain()
{
    for (const auto key : held_) {
        xkb_state_update_key(state_.get(), key, XKB_KEY_DOWN);
    }
    const auto mods = [this](xkb_state_component component) {
        return xkb_state_serialize_mods(state_.get(), component);
    };
    const auto layout = [this](xkb_state_component component) {
        return xkb_state_serialize_layout(state_.get(), component);
    };
    xkb_state_update_mask(state_.get(), mods(XKB_STATE_MODS_DEPRESSED), mods(XKB_STATE_MODS_LATCHED),
                          components_.locked, layout(XKB_STATE_LAYOUT_DEPRESSED),
                          layout(XKB_STATE_LAYOUT_LATCHED), components_.lockedLayout);
}

void KeyText::setComponents(const Components &components)
{
    components_ = components;
    apply();
}

void KeyText::lock(const char *modifier)
{
    const auto index = keymap_ ? xkb_keymap_mod_get_index(keymap_.get(), modifier) : XKB_MOD_INVALID;
    if (index != XKB_MOD_INVALID) {
        components_.locked |= xkb_mod_mask_t{1} << index;
        apply();
    }
}

void KeyText::apply()
{
    if (state_) {
        xkb_state_update_mask(state_.get(), components_.depressed, components_.latched, components_.locked,
                              components_.depressedLayout, components_.latchedLayout,
                              components_.lockedLayout);
    }
}

KeyText::Press KeyText::press(xkb_keycode_t key)
{
    if (!state_) {
        return {};
    }
    const auto symbol = xkb_state_key_get_one_sym(state_.get(), key);
    return isModifier(symbol) ? Press{true, {}} : Press{false, composed(key, symbol)};
}

void KeyText::follow(xkb_keycode_t key, bool isDown)
{
    std::erase(held_, key);
    if (isDown) {
        held_.push_back(key);
    }
    if (state_) {
        xkb_state_update_key(state_.get(), key, isDown ? XKB_KEY_DOWN : XKB_KEY_UP);
    }
}

std::u16string KeyText::composed(xkb_keycode_t key, xkb_keysym_t symbol)
{
    if (!compose_ || xkb_compose_state_feed(compose_.get(), symbol) == XKB_COMPOSE_FEED_IGNORED) {
        return plain(key);
    }
    switch (xkb_compose_state_get_status(compose_.get())) {
    case XKB_COMPOSE_NOTHING:
        return plain(key);
    case XKB_COMPOSE_COMPOSED: {
        TextBuffer text{};
        xkb_compose_state_get_utf8(compose_.get(), text.data(), text.size());
        xkb_compose_state_reset(compose_.get());
        return fromUtf8(text);
    }
    case XKB_COMPOSE_COMPOSING:
    case XKB_COMPOSE_CANCELLED:
        break;
    }
    return {};
}

std::u16string KeyText::plain(xkb_keycode_t key) const
{
    TextBuffer text{};
    xkb_state_key_get_utf8(state_.get(), key, text.data(), text.size());
    return fromUtf8(text);
}

} // namespace platform
