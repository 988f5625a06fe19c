// The end of the process on a programmer's error.
#pragma once

namespace foundation {

// Writes "Fatal error: ", the message and a line end to standard error, and aborts the process.
// Any thread. For errors of the program only: what the world does wrong is a value, never this.
[[noreturn]] void fatalError(const char *message);

// Writes the source, a colon, the line, ": Assertion failed" and a line end to standard error, and aborts the
// process. Any thread. For what the program's own code must have seen to, in release builds too.
[[noreturn]] void assertionFailure(const char *source, int line);

} // namespace foundation
