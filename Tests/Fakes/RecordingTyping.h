// Ways to type that keep what they are given, and fail on command.
#pragma once

#include "Platform/TextTyper.h"

#include <functional>
#include <string>
#include <vector>

namespace fakes {

class RecordingTyping final : public platform::TypingServices
{
public:
    struct Event
    {
        std::u16string units;
        bool isDown = false;

        bool operator==(const Event &) const = default;
    };

    std::unique_ptr<platform::TextTyper> open(std::u16string_view text, QString &why,
                                              const std::stop_token &stop) override;
    bool typesIntoOwnWindow() const override { return isOwnWindow; }

    bool hasWay = true;
    bool isLost = false;
    bool isRead = true; // when a text is finished
    // Where there is one nothing is ever read: the end of a text calls it and waits until it is to stop.
    std::function<void()> whenUnread;
    bool isOwnWindow = false;
    std::u16string cannotType;          // this character
    std::vector<std::u16string> opened; // the texts
    std::vector<Event> posted;
    int closedCount = 0;
};

} // namespace fakes
