// The keymap of a keyboard that is made for a text.
#pragma once

#include "Platform/Linux/Typing/TypedSymbols.h"

#include <QByteArray>

#include <map>
#include <optional>
#include <span>

namespace platform {

// One symbol on each key, whatever the modifiers. Return and Tab are on the keys that every keyboard has for
// them, the others on keys that print something on every keyboard: some programs act on the codes of others.
class TypingKeymap
{
public:
    // As many of the symbols as there are keys, 48 and these two, from the first on.
    explicit TypingKeymap(std::span<const KeySymbol> symbols);

    // The evdev code of the key with a symbol.
    [[nodiscard]] std::optional<std::uint16_t> keyOf(KeySymbol symbol) const;
    // In the format that compositors and their clients exchange.
    [[nodiscard]] QByteArray text() const;
    // Whether a keymap's text is that of one of these, as a compositor tells it again.
    [[nodiscard]] static bool isText(const QByteArray &keymapText)
    {
        return keymapText.contains(QByteArray("xkb_symbols \"") + name + '"');
    }

private:
    static constexpr auto name = "typed"; // of each of its sections

    std::map<KeySymbol, std::uint16_t> keys_;
};

} // namespace platform
