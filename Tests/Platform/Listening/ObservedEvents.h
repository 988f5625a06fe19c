// The events that a tap has told.
#pragma once

#include "Platform/InputListener.h"

#include <ostream>
#include <string>
#include <vector>

namespace platform {

// In words a failing test can print.
void PrintTo(const ObservedEvent &event, std::ostream *stream);

// The events of a tap, in their order.
class ObservedEvents
{
public:
    [[nodiscard]] InputListener::Handler handler()
    {
        return [this](const ObservedEvent &event) { events_.push_back(event); };
    }

    [[nodiscard]] const std::vector<ObservedEvent> &all() const { return events_; }
    [[nodiscard]] std::size_t size() const { return events_.size(); }
    // The characters of all of them.
    [[nodiscard]] std::u16string text() const;
    // Their kinds.
    [[nodiscard]] std::vector<ObservedKind> kinds() const;
    void clear() { events_.clear(); }

private:
    std::vector<ObservedEvent> events_;
};

// A key's press, by virtual key code and text; a modifier's, by its code.
[[nodiscard]] ObservedEvent keyDown(std::int64_t virtualKeyCode, const std::u16string &characters);
[[nodiscard]] ObservedEvent modifierDown(std::int64_t virtualKeyCode);
[[nodiscard]] ObservedEvent moved(ObservedKind kind, double x, double y);

} // namespace platform
