#include "SharedCore/EventTapManager/KeyPress.h"

#include "Foundation/FatalError.h"

#include <QList>
#include <QString>

#include <limits>
#include <string_view>

namespace sharedcore {

namespace {

constexpr std::uint16_t deleteKey = 51;
constexpr std::size_t mostUnits = 4;

std::uint16_t checkedKeyCode(std::int64_t code)
{
    if (code < 0) {
        foundation::fatalError("Negative value is not representable");
    }
    if (code > std::numeric_limits<std::uint16_t>::max()) {
        foundation::fatalError("Not enough bits to represent the passed value");
    }
    return static_cast<std::uint16_t>(code);
}

std::u16string_view firstUnits(std::u16string_view characters)
{
    const auto first = characters.substr(0, mostUnits);
    const bool isCut = first.size() < characters.size();
    return isCut && QChar::isHighSurrogate(first.back()) ? first.substr(0, first.size() - 1) : first;
}

// By way of UTF-32, where half a pair becomes U+FFFD; straight to UTF-8 it would become a question mark.
std::string toUtf8(std::u16string_view characters)
{
    const auto points = QStringView(characters).toUcs4();
    return QString::fromUcs4(reinterpret_cast<const char32_t *>(points.data()), points.size()) // NOLINT
        .toStdString();
}

} // namespace

KeyPress keyPressOf(const platform::ObservedEvent &event)
{
    const auto keyCode = checkedKeyCode(event.virtualKeyCode);
    if (keyCode == deleteKey) {
        return {{}, keyCode, true};
    }
    return {toUtf8(firstUnits(event.characters)), keyCode, false};
}

} // namespace sharedcore
