// Keys that have no meaning, and get one for as long as a text is typed.
#pragma once

#include "Platform/Linux/Typing/TypedSymbols.h"
#include "Platform/Linux/X11/XKeymap.h"

#include <span>

namespace platform {

// A lent key types its symbol whatever modifiers the user holds or has locked: the server reports it to
// programs without any of them, by an action that is part of the key's meaning. Keys that another program has
// given a meaning meanwhile are left to it. One thread.
class LentKeys
{
public:
    // Finds the keys that may be lent: those to which no keyboard of the server gives a meaning, but for the
    // silent ones, which are posted because they have none. REQUIRES: startKeyboardExtensions(); the
    // connection outlives it.
    explicit LentKeys(XConnection &connection);

    // How many symbols can be had at once; 16 of an ordinary keyboard of today.
    [[nodiscard]] std::size_t capacity() const { return originals_.size(); }
    // What the keys mean when they are not lent.
    [[nodiscard]] const XKeyMeanings &originals() const { return originals_; }

    // Lets go of the keys that another program has given a meaning since.
    void noticeChanges();

    // From now on the keys have these symbols, as far as there are keys; others may lose theirs. REQUIRES:
    // each symbol is there once.
    void lend(std::span<const KeySymbol> symbols);
    // The key that has a symbol.
    [[nodiscard]] std::optional<xcb_keycode_t> keyOf(KeySymbol symbol) const;
    // The keys have their old meaning again when the server has handled it. False where it does not tell what
    // they mean now: they are left as they are.
    [[nodiscard]] bool giveBack();

private:
    [[nodiscard]] xcb_keycode_t keyWithoutOneOf(std::span<const KeySymbol> symbols) const;
    void dropStolenKeys(const XKeymap &keymap);
    void change(const XKeymap &keymap, const XKeyMeanings &meanings);
    [[nodiscard]] bool areKeyboardsAlike(const XKeymap &keymap);

    XConnection &connection_;
    XKeyMeanings originals_;
    std::map<xcb_keycode_t, KeySymbol> lent_;
};

} // namespace platform
