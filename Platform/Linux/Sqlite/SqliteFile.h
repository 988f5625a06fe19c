// A database file that survives bad days.
#pragma once

#include "Platform/Linux/FileDescriptor.h"
#include "Platform/Linux/Sqlite/LogStamp.h"
#include "Platform/Linux/Sqlite/SqliteConnection.h"
#include "Platform/Linux/Sqlite/SqliteStatus.h"

#include <sys/types.h>

#include <filesystem>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>

namespace platform {

// What a program expects of a file. The version is kept in the file (`user_version`).
struct SqliteFormat
{
    // The one that the program writes; 1 or more.
    int version;
    // Makes a file of that older version, 0 for a fresh one, into one of this version, in a transaction.
    std::function<void(SqliteConnection &, int olderVersion)> upgrade;
    // A statement that can be prepared in any sound file of this version. Empty: none.
    std::string probe;
};

// The database is opened at the first use and stays open. Writes are on the disk when they are acknowledged
// (a write-ahead log, synchronised at each commit), and several processes may use the file at once. Files are
// 0600 in a folder that is 0700. Any thread, one at a time; others wait.
//
// A damaged file is set aside under a dated name with all that lies beside it, and a fresh one begun in its
// place; nothing is deleted. A process that has the old one open notices at its next call. A file that cannot
// be written is read. What fails is tried again by the next call, from the start.
class SqliteFile
{
public:
    using Work = std::function<void(SqliteConnection &)>;

    // REQUIRES: the path names a folder, which becomes the user's alone. It is not used where it does not.
    SqliteFile(std::filesystem::path file, SqliteFormat format);
    SqliteFile(const SqliteFile &) = delete;
    SqliteFile &operator=(const SqliteFile &) = delete;
    ~SqliteFile();

    // Runs the work, which may throw SQLite::Exception, and says how it went. Work that finds the file
    // damaged, or has written to one that was set aside meanwhile, is run once more, with a fresh one.
    // Nothing is thrown by this.
    SqliteStatus run(const Work &work);

    // What was read after a stamp was taken that is settled holds as long as the stamp is the same: a write
    // that is acknowledged, by whatever process, changes it before. A process that is killed in the very
    // moment of a write may leave the stamp as it was. Nothing where the file is not open for writing.
    [[nodiscard]] std::optional<LogStamp> stamp();

    [[nodiscard]] const std::filesystem::path &path() const { return file_; }

private:
    SqliteStatus attempt(const Work &work);
    [[nodiscard]] bool isOutOfPlace() const;
    SqliteStatus open();
    SqliteStatus openLocked();
    SqliteStatus openForWriting();
    SqliteStatus openForReading();
    SqliteStatus check();
    bool isSound(int version);
    void makeReady();
    SqliteStatus replaceDamaged();
    SqliteStatus runOn(SqliteConnection &connection, const Work &work);
    void close();

    const std::filesystem::path file_;
    const SqliteFormat format_;
    std::mutex mutex_;
    std::unique_ptr<SqliteConnection> connection_;
    FileDescriptor log_; // no lock is held on the log, so that this may be closed
    ino_t inode_ = 0;    // of the file that was opened last
    bool isReadOnly_ = false;
    bool hasWritten_ = false; // by the last work
};

} // namespace platform
