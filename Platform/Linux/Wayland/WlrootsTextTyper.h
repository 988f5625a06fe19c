// Types text on Wayland compositors that let a program have a keyboard of its own.
#pragma once

#include "Platform/Linux/Wayland/SeatKeyboard.h"
#include "Platform/Linux/Wayland/TypingKeymap.h"
#include "Platform/Linux/Wayland/WaylandGlobals.h"
#include "Platform/TextTyper.h"

#include <optional>

struct zwp_virtual_keyboard_v1;

namespace platform {

// Speaks zwp_virtual_keyboard_v1. The keyboard's keymap has the characters of the text; where they do not fit
// into one, another follows. The focused program is told of each in the order of the keys, and what the user
// holds on another keyboard does not count for this one. In the end the program is told the user's keymap
// again.
class WlrootsTextTyper final : public TextTyper
{
public:
    // Nothing where no compositor answers within a second, or it lets nobody have a keyboard; `why` then says
    // so.
    [[nodiscard]] static std::unique_ptr<TextTyper> create(std::u16string_view text, QString &why);
    ~WlrootsTextTyper() override;

    bool post(const CharacterEvent &event) override;
    bool isOpen() const override { return connection_.isOpen() && !globals_->isAnythingBoundGone(); }
    bool finish() override;

private:
    explicit WlrootsTextTyper(std::u16string_view text);

    [[nodiscard]] QString open();
    [[nodiscard]] bool type(KeySymbol symbol);
    [[nodiscard]] bool takeKeymapFor(KeySymbol symbol);

    WaylandConnection connection_;
    std::optional<WaylandGlobals> globals_;
    std::optional<SeatKeyboard> seat_;
    WaylandObject<zwp_virtual_keyboard_v1> keyboard_;
    QByteArray usersKeymap_;
    std::optional<TypingKeymap> keymap_;
    std::vector<KeySymbol> symbols_; // of the whole text
    std::size_t typedCount_ = 0;
    std::u16string pressed_;
};

} // namespace platform
