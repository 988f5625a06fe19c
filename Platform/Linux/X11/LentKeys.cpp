#include "Platform/Linux/X11/LentKeys.h"

#include "Platform/Linux/SilentKeyChoice.h"
#include "Platform/Linux/X11/Xkb.h"

#include <algorithm>
#include <utility>

namespace platform {

namespace {

// Of the key types that every keymap begins with, the one that takes both Shift and Lock into account:
// programs leave a letter as it is where its type has.
constexpr std::uint8_t alphabeticType = 2;
constexpr std::uint8_t alphabeticLevels = 2;
constexpr std::uint8_t allModifiers = 0xff;

// Others do not change the keymap meanwhile.
class ServerGrab
{
public:
    explicit ServerGrab(XConnection &connection)
        : connection_(connection)
    {
        xcb_grab_server(connection_.get());
    }
    ServerGrab(const ServerGrab &) = delete;
    ServerGrab &operator=(const ServerGrab &) = delete;
    ~ServerGrab()
    {
        xcb_ungrab_server(connection_.get());
        connection_.flush();
    }

private:
    XConnection &connection_;
};

bool isWithoutMeaning(const XKeyMeaning &key)
{
    return key.actions.empty() &&
           std::ranges::all_of(key.symbols, [](auto symbol) { return symbol == XCB_NO_SYMBOL; });
}

bool isSilentKey(xcb_keycode_t code)
{
    return std::ranges::any_of(silentKeyCodes, [code](auto evdev) { return evdev + xkbCodeOfEvdev == code; });
}

// The same key, whatever was to be typed, without the modifiers.
XKeyMeaning::Action plainKey(xcb_keycode_t code)
{
    return {XCB_XKB_SA_TYPE_REDIRECT_KEY, code, allModifiers, 0, 0, 0, 0, 0};
}

XKeyMeaning lentMeaning(xcb_keycode_t code, KeySymbol symbol)
{
    XKeyMeaning key;
    key.types = {alphabeticType};
    key.groupInfo = 1;
    key.width = alphabeticLevels;
    key.symbols.assign(alphabeticLevels, symbol);
    key.actions.assign(alphabeticLevels, plainKey(code));
    return key;
}

bool isSame(const XKeyMeaning &one, const XKeyMeaning &other, XKeyPart part)
{
    if (part == XKeyPart::actions) {
        return one.actions == other.actions;
    }
    return one.types == other.types && one.groupInfo == other.groupInfo && one.width == other.width &&
           one.symbols == other.symbols;
}

XKeyMeanings keysWithoutMeaning(const XKeymap &keymap)
{
    XKeyMeanings found;
    for (const auto &[code, meaning] : keymap.keys) {
        const bool isSpecial = std::ranges::find(keymap.specialKeys, code) != keymap.specialKeys.end();
        if (!isSpecial && !isSilentKey(code) && isWithoutMeaning(meaning)) {
            found.emplace(code, meaning);
        }
    }
    return found;
}

void fillGaps(XKeyMeanings &meanings, const XKeyMeanings &filling)
{
    if (meanings.empty()) {
        return;
    }
    const auto first = filling.lower_bound(meanings.begin()->first);
    const auto last = filling.upper_bound(meanings.rbegin()->first);
    meanings.insert(first, last); // those that are there already stay
}

} // namespace

LentKeys::LentKeys(XConnection &connection)
    : connection_(connection)
{
    const auto core = readKeymap(connection_, coreKeyboard);
    originals_ = core ? keysWithoutMeaning(*core) : XKeyMeanings();
    for (const auto keyboard : attachedKeyboards(connection_)) {
        const auto keymap = readKeymap(connection_, keyboard);
        const auto others = keymap ? keysWithoutMeaning(*keymap) : XKeyMeanings();
        std::erase_if(originals_, [&others](const auto &key) {
            const auto other = others.find(key.first);
            return other == others.end() || other->second != key.second;
        });
    }
}

void LentKeys::noticeChanges()
{
    if (const auto keymap = readKeymap(connection_, coreKeyboard)) {
        dropStolenKeys(*keymap);
    }
}

void LentKeys::lend(std::span<const KeySymbol> symbols)
{
    const ServerGrab grab(connection_);
    const auto keymap = readKeymap(connection_, coreKeyboard);
    if (!keymap) {
        return;
    }
    dropStolenKeys(*keymap);
    const auto wanted = symbols.first(std::min(symbols.size(), capacity()));
    XKeyMeanings changes;
    for (const auto symbol : wanted) {
        if (!keyOf(symbol)) {
            const auto key = keyWithoutOneOf(wanted);
            lent_[key] = symbol;
            changes[key] = lentMeaning(key, symbol);
        }
    }
    change(*keymap, changes);
}

// The low codes, which mean something to some programs, come last. There is one as long as one of the symbols
// has no key.
xcb_keycode_t LentKeys::keyWithoutOneOf(std::span<const KeySymbol> symbols) const
{
    return std::find_if(originals_.rbegin(), originals_.rend(),
                        [&](const auto &key) {
                            const auto lent = lent_.find(key.first);
                            return lent == lent_.end() ||
                                   std::ranges::find(symbols, lent->second) == symbols.end();
                        })
        ->first;
}

// Those that have neither the meaning that they had nor the one that they were given here. Those that have
// their own again can be lent again.
void LentKeys::dropStolenKeys(const XKeymap &keymap)
{
    const auto hasMeaning = [&keymap](xcb_keycode_t code, const XKeyMeaning &meaning) {
        const auto now = keymap.keys.find(code);
        return now != keymap.keys.end() && now->second == meaning;
    };
    std::erase_if(
        lent_, [&](const auto &key) { return !hasMeaning(key.first, lentMeaning(key.first, key.second)); });
    std::erase_if(originals_, [&](const auto &key) {
        return !lent_.contains(key.first) && !hasMeaning(key.first, key.second);
    });
}

std::optional<xcb_keycode_t> LentKeys::keyOf(KeySymbol symbol) const
{
    const auto key = std::ranges::find(lent_, symbol, [](const auto &entry) { return entry.second; });
    return key == lent_.end() ? std::nullopt : std::optional(key->first);
}

bool LentKeys::giveBack()
{
    const ServerGrab grab(connection_);
    const auto keymap = readKeymap(connection_, coreKeyboard);
    if (keymap) {
        dropStolenKeys(*keymap);
        change(*keymap, originals_);
        lent_.clear();
    }
    return keymap.has_value();
}

// Each row of keys is an event to every program on the desktop, and a reason for some to read all of the
// keymap: where it is the same on every keyboard, one row with what is there already is better than many.
void LentKeys::change(const XKeymap &keymap, const XKeyMeanings &meanings)
{
    const bool areAlike = areKeyboardsAlike(keymap);
    for (const auto part : {XKeyPart::symbols, XKeyPart::actions}) {
        auto changes = meanings;
        std::erase_if(changes,
                      [&](const auto &key) { return isSame(key.second, keymap.keys.at(key.first), part); });
        if (areAlike) {
            fillGaps(changes, keymap.keys);
        }
        setKeyMeanings(connection_, changes, part);
    }
}

bool LentKeys::areKeyboardsAlike(const XKeymap &keymap)
{
    return std::ranges::all_of(attachedKeyboards(connection_), [&](XKeyboard keyboard) {
        return readKeymap(connection_, keyboard) == keymap;
    });
}

} // namespace platform
