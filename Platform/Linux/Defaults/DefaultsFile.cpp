#include "Platform/Linux/Defaults/DefaultsFile.h"

#include <QCoreApplication>

#include <pwd.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <optional>

namespace platform {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t longestName = 200;

// What the variable names, where it is an absolute path; the others do not count.
fs::path folderFrom(const char *variable)
{
    const char *value = std::getenv(variable);
    const fs::path folder = value ? value : "";
    return folder.is_absolute() ? folder : fs::path();
}

fs::path homeOfUser()
{
    std::array<char, 16'384> buffer{};
    struct passwd entry
    {};
    struct passwd *found = nullptr;
    getpwuid_r(geteuid(), &entry, buffer.data(), buffer.size(), &found);
    const fs::path home = found ? found->pw_dir : "";
    return home.is_absolute() ? home : fs::path();
}

fs::path dataFolder()
{
    auto folder = folderFrom("XDG_DATA_HOME");
    if (!folder.empty()) {
        return folder;
    }
    auto home = folderFrom("HOME");
    home = home.empty() ? homeOfUser() : home;
    return home.empty() ? home : home / ".local" / "share";
}

bool isNameLetter(char letter)
{
    return (letter >= 'a' && letter <= 'z') || (letter >= 'A' && letter <= 'Z') ||
           (letter >= '0' && letter <= '9') || letter == '.' || letter == '-' || letter == '_';
}

} // namespace

std::string applicationDomain()
{
    auto name = QCoreApplication::applicationName().toStdString();
    name = name.empty() ? program_invocation_short_name : name;
    std::ranges::replace_if(
        name, [](char letter) { return !isNameLetter(letter); }, '_');
    if (name.empty() || name.front() == '.') {
        name = '_' + name;
    }
    return name.substr(0, longestName);
}

bool isDomainName(std::string_view name)
{
    return !name.empty() && name.size() <= longestName && name.front() != '.' &&
           std::ranges::all_of(name, isNameLetter);
}

fs::path defaultsFile(std::string_view domain)
{
    const auto folder = dataFolder();
    return folder.empty() ? folder : folder / domain / "defaults.sqlite";
}

} // namespace platform
