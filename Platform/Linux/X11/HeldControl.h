// The Control key, while the user holds it and a text is typed.
#pragma once

#include "Platform/Linux/X11/XConnection.h"

namespace platform {

// Some programs keep an account of the modifiers of their own, beside what each key says, and make a control
// character of each letter while Control is held. So it goes up for them; to be asked before each key, as the
// user may press it at any time. It stays up until it is pressed again: nobody can tell whether whoever held
// it still does, and a key that is pressed for a hand that has gone stays down for good. Queued. One thread.
// REQUIRES: startKeyboardExtensions().
void letGoOfControl(XConnection &connection);

} // namespace platform
