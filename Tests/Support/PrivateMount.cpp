#include "Tests/Support/PrivateMount.h"

#include <sched.h>
#include <sys/mount.h>
#include <unistd.h>

#include <fstream>
#include <string>

namespace testsupport {

namespace {

constexpr uid_t anotherUser = 12'345;

bool write(const char *file, const std::string &text)
{
    std::ofstream stream(file);
    stream << text << std::flush;
    return stream.good();
}

// In which the user is the user, and may mount.
bool enterUserNamespace()
{
    const auto user = std::to_string(getuid());
    const auto group = std::to_string(getgid());
    return unshare(CLONE_NEWUSER) == 0 && write("/proc/self/setgroups", "deny") &&
           write("/proc/self/uid_map", user + " " + user + " 1") &&
           write("/proc/self/gid_map", group + " " + group + " 1");
}

} // namespace

bool separateMounts()
{
    static const bool isSeparate = (geteuid() == 0 || enterUserNamespace()) && unshare(CLONE_NEWNS) == 0 &&
                                   mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
    return isSeparate;
}

SmallDisk::SmallDisk(std::filesystem::path folder, int kilobytes)
    : folder_(std::move(folder))
{
    std::filesystem::create_directories(folder_);
    const auto options = "mode=0700,size=" + std::to_string(kilobytes) + "k";
    isMounted_ = mount("none", folder_.c_str(), "tmpfs", 0, options.c_str()) == 0;
}

SmallDisk::~SmallDisk()
{
    umount2(folder_.c_str(), MNT_DETACH);
}

bool SmallDisk::setReadOnly(bool isReadOnly) const
{
    const unsigned long readOnly = isReadOnly ? static_cast<unsigned long>(MS_RDONLY) : 0;
    const unsigned long flags = MS_REMOUNT | readOnly;
    return mount("none", folder_.c_str(), nullptr, flags, nullptr) == 0;
}

bool giveToAnotherUser(const std::filesystem::path &file)
{
    return geteuid() == 0 ? chown(file.c_str(), anotherUser, anotherUser) == 0
                          : mount("/etc/passwd", file.c_str(), nullptr, MS_BIND, nullptr) == 0;
}

} // namespace testsupport
