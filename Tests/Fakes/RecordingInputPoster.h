// A poster that keeps what it is given, and fails on command.
#pragma once

#include "Platform/InputPoster.h"

#include <functional>
#include <vector>

namespace fakes {

class RecordingInputPoster final : public platform::InputPoster
{
public:
    void prepare() override { ++preparationCount; }

    std::optional<platform::PointerLocation> pointerLocation() override { return location; }

    bool post(const platform::InputEvent &event) override
    {
        if (cannotMake && cannotMake(event)) {
            return false;
        }
        posted.push_back(event);
        return true;
    }

    bool isOpen() const override { return true; }

    std::optional<platform::PointerLocation> location = platform::PointerLocation{100, 200};
    // True for the events that cannot be made.
    std::function<bool(const platform::InputEvent &)> cannotMake;
    std::vector<platform::InputEvent> posted;
    int preparationCount = 0;
};

} // namespace fakes
