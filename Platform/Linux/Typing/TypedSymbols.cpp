#include "Platform/Linux/Typing/TypedSymbols.h"

#include <QChar>
#include <QList>
#include <QStringView>

#include <xkbcommon/xkbcommon.h>

namespace platform {

namespace {

KeySymbol symbolOf(char32_t character)
{
    if (character == U'\n' || character == U'\r') {
        return returnSymbol;
    }
    if (character == U'\t') {
        return tabSymbol;
    }
    return QChar::category(character) == QChar::Other_Control ? XKB_KEY_NoSymbol
                                                              : xkb_utf32_to_keysym(character);
}

} // namespace

std::vector<KeySymbol> typedSymbols(std::u16string_view text)
{
    std::vector<KeySymbol> symbols;
    char32_t before = 0;
    const auto characters = QStringView(text.data(), static_cast<qsizetype>(text.size())).toUcs4();
    for (const char32_t character : characters) {
        const bool isPairsEnd = before == U'\r' && character == U'\n';
        const auto symbol = isPairsEnd ? XKB_KEY_NoSymbol : symbolOf(character);
        if (symbol != XKB_KEY_NoSymbol) {
            symbols.push_back(symbol);
        }
        before = character;
    }
    return symbols;
}

} // namespace platform
