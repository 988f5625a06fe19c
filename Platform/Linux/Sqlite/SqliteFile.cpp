#include "Platform/Linux/Sqlite/SqliteFile.h"

#include "Platform/Linux/Sqlite/PrivateFolder.h"

#include <SQLiteCpp/Exception.h>
#include <fcntl.h>
#include <sqlite3.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <system_error>
#include <utility>

namespace platform {

namespace {

namespace fs = std::filesystem;

constexpr mode_t ownerOnly = S_IRUSR | S_IWUSR;
constexpr mode_t permissionBits = S_IRWXU | S_IRWXG | S_IRWXO;

// What the work throws, as a value.
template <class Callable> SqliteStatus guarded(const Callable &work)
{
    try {
        return work();
    } catch (const SQLite::Exception &error) {
        return statusOf(error.getErrorCode());
    }
}

// Without running it: that would read the whole table.
bool canBePrepared(const SQLite::Database &database, const std::string &sql)
{
    try {
        const SQLite::Statement statement(database, sql);
        return true;
    } catch (const SQLite::Exception &error) {
        if (error.getErrorCode() != SQLITE_ERROR) {
            throw;
        }
        return false;
    }
}

fs::path beside(fs::path file, const char *ending)
{
    return file += ending;
}

bool isOwnFile(const struct stat &status)
{
    return S_ISREG(status.st_mode) && status.st_uid == geteuid();
}

bool hasContent(const fs::path &file)
{
    const auto status = fileStatus(file);
    return status && status->st_size > 0;
}

// As a URI's path: what has a meaning there is written in hexadecimal digits.
std::string uri(const fs::path &file, const char *parameters)
{
    std::string text = "file:";
    for (const char letter : file.native()) {
        if (letter == '?' || letter == '#' || letter == '%') {
            std::array<char, 4> code{};
            std::snprintf(code.data(), code.size(), "%%%02X", static_cast<unsigned>(letter)); // NOLINT
            text += code.data();
        } else {
            text += letter;
        }
    }
    return text + parameters;
}

} // namespace

SqliteFile::SqliteFile(fs::path file, SqliteFormat format)
    : file_(std::move(file))
    , format_(std::move(format))
{}

SqliteFile::~SqliteFile() = default;

SqliteStatus SqliteFile::run(const Work &work)
{
    const std::scoped_lock lock(mutex_);
    auto status = attempt(work);
    if (status == SqliteStatus::damaged) {
        status = replaceDamaged();
        status = status == SqliteStatus::done ? attempt(work) : status;
    }
    if (status == SqliteStatus::done && hasWritten_ && isOutOfPlace()) {
        connection_->setLeavesFilesAlone(true);
        close(); // opening it again waits for the process that sets it aside
        status = attempt(work);
    }
    return status;
}

// The log is moved first, then the database.
bool SqliteFile::isOutOfPlace() const
{
    struct stat open
    {};
    const auto named = fileStatus(beside(file_, "-wal"));
    const bool hasLogMoved =
        log_.isOpen() && fstat(log_.get(), &open) == 0 && (!named || named->st_ino != open.st_ino);
    return hasLogMoved || (connection_ && connection_->hasMoved());
}

SqliteStatus SqliteFile::attempt(const Work &work)
{
    if (connection_ && connection_->hasMoved()) {
        close();
    }
    if (!connection_) {
        const auto status = open();
        if (status != SqliteStatus::done) {
            return status;
        }
    }
    const auto status = runOn(*connection_, work);
    if (isReadOnly_) { // it may be writable the next time
        close();
    }
    return status;
}

SqliteStatus SqliteFile::runOn(SqliteConnection &connection, const Work &work)
{
    const int changesBefore = connection.database().getTotalChanges();
    const auto status = guarded([&] {
        work(connection);
        return SqliteStatus::done;
    });
    hasWritten_ = connection.database().getTotalChanges() != changesBefore;
    if (hasWritten_) {
        // The log was written before the disk had it; only now does everybody read what is in it.
        futimens(log_.get(), nullptr);
    }
    return status;
}

std::optional<LogStamp> SqliteFile::stamp()
{
    const std::scoped_lock lock(mutex_);
    struct stat status
    {};
    if (!log_.isOpen() || fstat(log_.get(), &status) != 0 || status.st_nlink == 0) {
        return std::nullopt;
    }
    return LogStamp(status);
}

SqliteStatus SqliteFile::open()
{
    const auto folder = file_.parent_path();
    const auto status = makePrivateFolder(folder);
    if (status != SqliteStatus::done) {
        return status;
    }
    const FolderLock lock(folder, longestSqliteWait);
    return lock.isHeld() ? openLocked() : SqliteStatus::busy;
}

SqliteStatus SqliteFile::openLocked()
{
    const auto existing = fileStatus(file_);
    std::error_code unknown; // in a folder that may not be searched
    if (fs::is_symlink(fs::symlink_status(file_, unknown)) || (existing && !isOwnFile(*existing))) {
        return SqliteStatus::denied;
    }
    // SQLite takes an empty database for a new one, and would remove the log that belonged to it.
    if (existing && existing->st_size == 0 && hasContent(beside(file_, "-wal")) && !setAside(file_)) {
        return SqliteStatus::damaged;
    }
    const auto status = guarded([this] { return isWritable(file_) ? openForWriting() : openForReading(); });
    if (status != SqliteStatus::done) {
        close();
    }
    return status;
}

SqliteStatus SqliteFile::openForWriting()
{
    isReadOnly_ = false;
    const bool hasLog = hasContent(beside(file_, "-wal"));
    const auto existing = fileStatus(file_);
    connection_ =
        std::make_unique<SqliteConnection>(file_.native(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
    const auto opened = fileStatus(file_);
    inode_ = opened ? opened->st_ino : 0;
    if (opened && (opened->st_mode & permissionBits) != ownerOnly) {
        chmod(file_.c_str(), ownerOnly); // the files beside it take theirs from it
    }
    connection_->setLeavesFilesAlone(hasLog); // until it is known that they are ours to write
    // SQLite fills what is missing of the last page with zeros. A log may still hold that page.
    const bool isCutShort =
        existing && !hasLog && existing->st_size % connection_->numberOf("PRAGMA page_size") != 0;
    const auto status = isCutShort ? SqliteStatus::damaged : check();
    if (status == SqliteStatus::done) {
        makeReady();
        connection_->setLeavesFilesAlone(false);
        log_ = FileDescriptor(::open(beside(file_, "-wal").c_str(), O_RDONLY | O_CLOEXEC)); // NOLINT
    }
    return status;
}

SqliteStatus SqliteFile::openForReading()
{
    isReadOnly_ = true;
    if (!fileStatus(file_)) {
        return SqliteStatus::readOnly;
    }
    // Without a log there is nothing to share with others, nor room to share it in.
    const char *parameters = hasContent(beside(file_, "-wal")) ? "?mode=ro" : "?mode=ro&immutable=1";
    connection_ =
        std::make_unique<SqliteConnection>(uri(file_, parameters), SQLite::OPEN_READONLY | SQLite::OPEN_URI);
    return check();
}

SqliteStatus SqliteFile::check()
{
    const int version = connection_->numberOf("PRAGMA user_version");
    if (version > format_.version) {
        return SqliteStatus::newer;
    }
    return isSound(version) ? SqliteStatus::done : SqliteStatus::damaged;
}

// What no program of ours has written counts as damaged: it is kept, and does not stop the program.
bool SqliteFile::isSound(int version)
{
    if (version == 0) {
        return connection_->numberOf("SELECT count(*) FROM sqlite_schema") == 0;
    }
    const bool isProbed = version == format_.version && !format_.probe.empty();
    return version > 0 && (!isProbed || canBePrepared(connection_->database(), format_.probe));
}

void SqliteFile::makeReady()
{
    connection_->database().exec("PRAGMA synchronous=FULL");
    const int version = connection_->numberOf("PRAGMA user_version");
    if (version < format_.version) {
        connection_->transaction([this, version] {
            format_.upgrade(*connection_, version);
            connection_->database().exec("PRAGMA user_version=" + std::to_string(format_.version));
        });
    }
    // Last, as a file that the upgrade refuses stays as it is. The journal stays another one where there is
    // no shared memory.
    connection_->database().exec("PRAGMA journal_mode=WAL");
    static_cast<void>(connection_->numberOf("PRAGMA user_version")); // the first look at it makes the log
}

// Another process may have found the damage too, and have been faster.
SqliteStatus SqliteFile::replaceDamaged()
{
    if (connection_) {
        connection_->setLeavesFilesAlone(true);
        close();
    }
    const FolderLock lock(file_.parent_path(), longestSqliteWait);
    if (!lock.isHeld()) {
        return SqliteStatus::busy;
    }
    const auto existing = fileStatus(file_);
    if (existing && existing->st_ino == inode_ && (isReadOnly_ || !setAside(file_))) {
        return SqliteStatus::damaged;
    }
    return SqliteStatus::done;
}

void SqliteFile::close()
{
    connection_.reset();
    log_ = FileDescriptor();
}

} // namespace platform
