// Typing a text into whatever program has the focus.
#pragma once

#include "Platform/TextTyper.h"

#include <chrono>
#include <functional>
#include <string_view>

namespace sharedcore {

// The pause after each character: most programs take in keys at this rate without losing one.
inline constexpr std::chrono::microseconds pauseAfterCharacter(10'000);

// Types a text, UTF-8, character by character in order: for each what a user takes for one character (a
// grapheme cluster of Unicode) its key goes down and comes up, and the calling thread sleeps for 10 ms.
// Blocks the caller that long, and at the end until the programs have read what was typed. Any thread; texts
// that come from several threads are typed one after the other. What is no UTF-8 is typed as U+FFFD.
//
// What the user holds makes no shortcuts of the text; on X11 Control, where it is held, counts as let go of
// after it. There is one exception: on desktops that let programs type through their portal alone (GNOME and
// KDE on Wayland) it does, since the text comes from the user's own keyboard there; only what its layout has
// can be typed.
//
// On the main thread, where a window of this program has the focus, the event loop goes on meanwhile, as in a
// modal dialog: the window takes in the text before the call returns, and whatever else happens is handled
// too. A text that is begun in such a handler is typed after the first one. The end of the application ends
// them both, and nobody waits for the window any more.
//
// False where something of the text could not be handed over: there is no way to type here, and the call
// returns at once; or the way was lost; or single characters cannot be typed here, and the others were; or
// the focused program read nothing for 5 s, and gets no more of the text. Of a program on X11 that answers no
// window manager's ping, such as xterm, it is not known whether it has read.
bool typeText(std::string_view text);

// The same with other services and another way to sleep.
using Sleep = std::function<void(std::chrono::microseconds)>;
bool typeText(std::string_view text, platform::TypingServices &services, const Sleep &sleep);

} // namespace sharedcore
