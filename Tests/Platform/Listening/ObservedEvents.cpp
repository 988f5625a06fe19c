#include "Tests/Platform/Listening/ObservedEvents.h"

#include <QString>

namespace platform {

void PrintTo(const ObservedEvent &event, std::ostream *stream)
{
    *stream << "kind " << static_cast<unsigned>(event.kind) << " at " << event.location.x << ", "
            << event.location.y << ", key " << event.virtualKeyCode << " '"
            << QString::fromStdU16String(event.characters).toStdString() << '\'';
}

std::u16string ObservedEvents::text() const
{
    std::u16string text;
    for (const auto &event : events_) {
        text += event.characters;
    }
    return text;
}

std::vector<ObservedKind> ObservedEvents::kinds() const
{
    std::vector<ObservedKind> kinds;
    for (const auto &event : events_) {
        kinds.push_back(event.kind);
    }
    return kinds;
}

ObservedEvent keyDown(std::int64_t virtualKeyCode, const std::u16string &characters)
{
    return {ObservedKind::keyDown, {}, virtualKeyCode, characters};
}

ObservedEvent modifierDown(std::int64_t virtualKeyCode)
{
    return {ObservedKind::flagsChanged, {}, virtualKeyCode, {}};
}

ObservedEvent moved(ObservedKind kind, double x, double y)
{
    return {kind, {x, y}, 0, {}};
}

} // namespace platform
