#include "Tests/Support/SmallDisk.h"

#include <sched.h>
#include <sys/mount.h>
#include <unistd.h>

#include <cerrno>
#include <fstream>
#include <string>
#include <system_error>

namespace testsupport {

namespace {

void require(bool isDone, const char *what)
{
    if (!isDone) {
        throw std::system_error(errno, std::generic_category(), what);
    }
}

void write(const char *file, const std::string &text)
{
    std::ofstream stream(file);
    stream << text << std::flush;
    require(stream.good(), file);
}

std::string sameNumber(unsigned number)
{
    return std::to_string(number) + " " + std::to_string(number) + " 1";
}

// An ordinary user may mount in a user namespace of his own, in which he stays who he is.
void enterNamespace()
{
    const auto user = geteuid();
    const auto group = getegid();
    require(unshare(user == 0 ? CLONE_NEWNS : CLONE_NEWNS | CLONE_NEWUSER) == 0, "unshare");
    if (user != 0) {
        write("/proc/self/setgroups", "deny");
        write("/proc/self/uid_map", sameNumber(user));
        write("/proc/self/gid_map", sameNumber(group));
    }
    require(mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0, "mount /");
}

} // namespace

SmallDisk::SmallDisk(const std::filesystem::path &folder, std::size_t size)
    : folder_(folder)
{
    enterNamespace();
    const auto options = "mode=0700,size=" + std::to_string(size);
    require(mount("tmpfs", folder.c_str(), "tmpfs", 0, options.c_str()) == 0, "mount tmpfs");
}

SmallDisk::~SmallDisk()
{
    umount2(folder_.c_str(), MNT_DETACH);
}

} // namespace testsupport
