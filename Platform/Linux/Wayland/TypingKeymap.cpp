#include "Platform/Linux/Wayland/TypingKeymap.h"

#include "Platform/Linux/SilentKeyChoice.h"

#include <QString>

#include <array>

namespace platform {

namespace {

constexpr std::uint16_t tabKey = 15;
constexpr std::uint16_t returnKey = 28;

// The rows of digits and letters, each from its first key to its last, and the key beside the left Shift.
struct Row
{
    std::uint16_t first;
    std::uint16_t last;
};
constexpr std::array rows{Row{2, 13}, Row{16, 27}, Row{30, 41}, Row{43, 53}, Row{86, 86}};

constexpr auto frame =
    "xkb_keymap {\n"
    "xkb_keycodes \"%3\" { minimum = 8; maximum = 255;\n%1};\n"
    "xkb_types \"%3\" { type \"ONE_LEVEL\" { modifiers = none; level_name[1] = \"Any\"; }; };\n"
    "xkb_compatibility \"%3\" { };\n"
    "xkb_symbols \"%3\" { key.type = \"ONE_LEVEL\"; key.repeat = No;\n%2};\n"
    "};\n";

std::vector<std::uint16_t> printingKeys()
{
    std::vector<std::uint16_t> keys;
    for (const auto &[first, last] : rows) {
        for (auto key = first; key <= last; ++key) {
            keys.push_back(key);
        }
    }
    return keys;
}

} // namespace

TypingKeymap::TypingKeymap(std::span<const KeySymbol> symbols)
{
    static const auto keys = printingKeys();
    auto next = keys.begin();
    for (const auto symbol : symbols) {
        if (symbol == tabSymbol || symbol == returnSymbol) {
            keys_.emplace(symbol, symbol == tabSymbol ? tabKey : returnKey);
        } else if (next != keys.end() && keys_.emplace(symbol, *next).second) {
            ++next;
        }
    }
}

std::optional<std::uint16_t> TypingKeymap::keyOf(KeySymbol symbol) const
{
    const auto key = keys_.find(symbol);
    return key == keys_.end() ? std::nullopt : std::optional(key->second);
}

QByteArray TypingKeymap::text() const
{
    QString codes;
    QString symbols;
    for (const auto &[symbol, key] : keys_) {
        codes += QStringLiteral("<K%1> = %2;\n").arg(key).arg(key + xkbCodeOfEvdev);
        symbols += QStringLiteral("key <K%1> { [ 0x%2 ] };\n").arg(key).arg(symbol, 0, 16);
    }
    return QString::fromLatin1(frame).arg(codes, symbols, QLatin1String(name)).toLatin1();
}

} // namespace platform
