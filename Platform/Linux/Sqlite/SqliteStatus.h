// How a database answers.
#pragma once

namespace platform {

enum class SqliteStatus {
    done,
    busy,     // others held it for longer than the call waits
    full,     // no room on the disk
    readOnly, // it can be read at most
    denied,   // it belongs to another user, or is no file
    newer,    // written by a newer program; left untouched
    damaged,  // and could not be set aside
    failed,   // the disk or the system refused
};

// What one of SQLite's result codes means (https://www.sqlite.org/rescode.html).
[[nodiscard]] SqliteStatus statusOf(int code);

} // namespace platform
