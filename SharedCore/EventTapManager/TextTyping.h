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
// False where something of the text could not be handed over: there is no way to type here, and the call
// returns at once; or the way was lost; or single characters cannot be typed here, and the others were.
bool typeText(std::string_view text);

// The same with other services and another way to sleep.
using Sleep = std::function<void(std::chrono::microseconds)>;
bool typeText(std::string_view text, platform::TypingServices &services, const Sleep &sleep);

} // namespace sharedcore
