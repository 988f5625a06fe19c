#include "Platform/Linux/Sqlite/PrivateFolder.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <ctime>
#include <string>
#include <thread>

namespace platform {

namespace {

namespace fs = std::filesystem;

constexpr mode_t ownerOnly = S_IRWXU;
constexpr mode_t permissionBits = S_IRWXU | S_IRWXG | S_IRWXO;

// The log comes before the database: should the process end in between, the rest is set aside the next time.
constexpr std::array endings{"-wal", "-shm", "-journal", ""};

bool makeFolders(const fs::path &folder)
{
    if (folder.empty() || mkdir(folder.c_str(), ownerOnly) == 0 || errno == EEXIST) {
        return true;
    }
    return errno == ENOENT && folder.has_relative_path() && makeFolders(folder.parent_path()) &&
           (mkdir(folder.c_str(), ownerOnly) == 0 || errno == EEXIST);
}

// As /tmp is, which is root's: closing it would take it away from everybody else.
bool isShared(const struct stat &folder)
{
    return (folder.st_mode & S_ISVTX) != 0;
}

SqliteStatus statusOfErrno()
{
    switch (errno) {
    case ENOSPC:
    case EDQUOT:
        return SqliteStatus::full;
    case EROFS:
    case EACCES:
    case EPERM:
        return SqliteStatus::readOnly;
    default:
        return SqliteStatus::failed;
    }
}

bool tryLock(int folder)
{
    return flock(folder, LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK;
}

bool lockWithin(int folder, std::chrono::milliseconds timeout)
{
    const auto deadline = std::chrono::steady_clock::now() + timeout;
    while (!tryLock(folder)) {
        if (std::chrono::steady_clock::now() >= deadline) {
            return false;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
    return true;
}

std::string dateText()
{
    const auto now = std::time(nullptr);
    std::tm fields{};
    gmtime_r(&now, &fields);
    std::array<char, 32> text{};
    const auto length = std::strftime(text.data(), text.size(), "%Y%m%dT%H%M%SZ", &fields);
    return {text.data(), length};
}

fs::path with(fs::path file, const std::string &ending)
{
    return file += ending;
}

bool isFree(const fs::path &name)
{
    return std::ranges::none_of(
        endings, [&name](const char *ending) { return fileStatus(with(name, ending)).has_value(); });
}

fs::path freeName(const fs::path &file)
{
    const auto dated = with(file, ".damaged-" + dateText());
    auto name = dated;
    for (int number = 2; !isFree(name); ++number) {
        name = with(dated, "-" + std::to_string(number));
    }
    return name;
}

} // namespace

SqliteStatus makePrivateFolder(const fs::path &folder)
{
    if (!makeFolders(folder)) {
        return statusOfErrno();
    }
    const auto status = fileStatus(folder);
    if (!status || !S_ISDIR(status->st_mode) || status->st_uid != geteuid() || isShared(*status)) {
        return SqliteStatus::denied;
    }
    if ((status->st_mode & permissionBits) != ownerOnly && isWritable(folder / "")) {
        chmod(folder.c_str(), ownerOnly);
    }
    return SqliteStatus::done;
}

FolderLock::FolderLock(const fs::path &folder, std::chrono::milliseconds timeout)
    : folder_(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) // NOLINT
    , isHeld_(folder_.isOpen() && lockWithin(folder_.get(), timeout))
{}

std::optional<struct stat> fileStatus(const fs::path &file)
{
    struct stat status
    {};
    if (stat(file.c_str(), &status) != 0) {
        return std::nullopt;
    }
    return status;
}

bool isWritable(const fs::path &file)
{
    const auto may = [](const fs::path &path, int access) {
        return faccessat(AT_FDCWD, path.c_str(), access, AT_EACCESS) == 0;
    };
    return may(file.parent_path(), W_OK | X_OK) && (may(file, W_OK) || errno == ENOENT);
}

bool setAside(const fs::path &file)
{
    const auto name = freeName(file);
    return std::ranges::all_of(endings, [&](const char *ending) {
        const auto old = with(file, ending);
        return !fileStatus(old) || std::rename(old.c_str(), with(name, ending).c_str()) == 0;
    });
}

} // namespace platform
