// Telling the compositor the keymap of a keyboard of the program's own.
#pragma once

#include <QByteArray>

struct zwp_virtual_keyboard_v1;

namespace platform {

// Queued; the caller flushes. False where there is no memory for it.
[[nodiscard]] bool sendKeymap(zwp_virtual_keyboard_v1 *keyboard, const QByteArray &text);

} // namespace platform
