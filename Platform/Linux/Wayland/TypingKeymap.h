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

private:
    std::map<KeySymbol, std::uint16_t> keys_;
};

} // namespace platform
