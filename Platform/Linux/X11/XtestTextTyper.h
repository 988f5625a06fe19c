// Types text on X11 with the XTEST extension.
#pragma once

#include "Platform/Linux/X11/KeymapGuard.h"
#include "Platform/Linux/X11/LentKeys.h"
#include "Platform/TextTyper.h"

#include <optional>

namespace platform {

// Each code point is the key of a symbol; keys without a meaning are lent for as many as there are such keys,
// and lent anew when others are needed, after programs have read those before. A program that does not read
// for 5 s gets nothing more, and the typer is no longer open. A character of several code points is sent in
// one piece. The keymap is as it was when the text is finished, or half a second after the program was ended
// from outside.
class XtestTextTyper final : public TextTyper
{
public:
    // Nothing where there is no X server, it lacks an extension, it is Xwayland, its keymap has no key to
    // spare, or another program types for longer than 5 s; `why` then says so. No wait for programs outlasts
    // the request to stop.
    [[nodiscard]] static std::unique_ptr<TextTyper> create(std::u16string_view text, QString &why,
                                                           std::stop_token stop);
    ~XtestTextTyper() override;

    bool post(const CharacterEvent &event) override;
    bool isOpen() const override { return isRead_ && connection_.isOpen(); }
    bool finish() override;

private:
    XtestTextTyper(std::u16string_view text, std::stop_token stop);

    [[nodiscard]] QString open();
    void leaveToOthers();
    void tellGuard();
    [[nodiscard]] bool type(KeySymbol symbol);
    [[nodiscard]] bool putKeymapRight();
    [[nodiscard]] std::vector<KeySymbol> nextSymbols(KeySymbol first) const;
    void postKey(xcb_keycode_t key);

    XConnection connection_;
    std::vector<KeySymbol> symbols_; // of the whole text
    std::stop_token stop_;
    std::size_t typedSymbols_ = 0;
    std::u16string pressed_;
    bool isRead_ = true; // what was typed so far, where it can be known
    std::optional<LentKeys> keys_;
    bool hasLentKeys_ = false;
    std::size_t guardedKeys_ = 0;
    std::optional<KeymapGuard> guard_; // goes first: what could be put right of the keymap has been by then
};

} // namespace platform
