// The end of the process on a programmer's error.
#pragma once

namespace foundation {

// Writes "Fatal error: ", the message and a line end to standard error, and aborts the process.
// Any thread. For errors of the program only: what the world does wrong is a value, never this.
[[noreturn]] void fatalError(const char *message);

} // namespace foundation
