#include "SharedCore/EventTapManager/TextTyping.h"

#include <QString>
#include <QTextBoundaryFinder>

#include <mutex>
#include <thread>

namespace sharedcore {

namespace {

std::mutex typing; // one text at a time

bool typeCharacter(platform::TextTyper &typer, std::u16string_view units)
{
    const bool isDown = typer.post({units, true});
    const bool isUp = typer.post({units, false});
    return isDown && isUp;
}

std::u16string_view unitsOf(const QString &text)
{
    const auto *units = reinterpret_cast<const char16_t *>(text.utf16()); // NOLINT
    return {units, static_cast<std::size_t>(text.size())};
}

bool typeCharacters(platform::TextTyper &typer, const QString &text, const Sleep &sleep)
{
    const auto units = unitsOf(text);
    QTextBoundaryFinder boundary(QTextBoundaryFinder::Grapheme, text);
    bool isWhole = true;
    for (std::size_t start = 0; start < units.size();) {
        if (!typer.isOpen()) {
            return false;
        }
        const auto end = static_cast<std::size_t>(boundary.toNextBoundary());
        isWhole = typeCharacter(typer, units.substr(start, end - start)) && isWhole;
        sleep(pauseAfterCharacter);
        start = end;
    }
    return isWhole;
}

} // namespace

bool typeText(std::string_view text)
{
    return typeText(text, platform::TypingServices::current(),
                    [](std::chrono::microseconds duration) { std::this_thread::sleep_for(duration); });
}

bool typeText(std::string_view text, platform::TypingServices &services, const Sleep &sleep)
{
    const std::scoped_lock lock(typing);
    const auto decoded = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
    if (decoded.isEmpty()) {
        return true;
    }
    QString why;
    const auto typer = services.open(unitsOf(decoded), why);
    return typer && typeCharacters(*typer, decoded, sleep);
}

} // namespace sharedcore
