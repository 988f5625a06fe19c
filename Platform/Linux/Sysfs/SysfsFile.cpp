#include "Platform/Linux/Sysfs/SysfsFile.h"

#include "Platform/Linux/FileDescriptor.h"
#include "Platform/Linux/Sysfs/SysfsText.h"

#include <dirent.h>
#include <fcntl.h>

#include <algorithm>
#include <charconv>
#include <memory>

namespace platform {

namespace {

constexpr std::size_t mostPaths = 1000;

FileDescriptor openedFile(const std::filesystem::path &file)
{
    return FileDescriptor(open(file.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
}

struct CloseFolder
{
    void operator()(DIR *folder) const { closedir(folder); }
};
using Folder = std::unique_ptr<DIR, CloseFolder>;

std::optional<unsigned> numberBehind(std::string_view prefix, std::string_view name)
{
    if (!name.starts_with(prefix)) {
        return std::nullopt;
    }
    unsigned number = 0;
    const auto *const end = name.data() + name.size();
    const auto [stop, error] = std::from_chars(name.data() + prefix.size(), end, number);
    return error == std::errc() && stop == end ? std::optional(number) : std::nullopt;
}

// An attribute comes in one piece; other files may come in several.
std::optional<std::string> readAll(int file, std::size_t most)
{
    std::string text(most, '\0');
    std::size_t size = 0;
    while (size < most) {
        const auto count = read(file, text.data() + size, most - size);
        if (count < 0) {
            return std::nullopt;
        }
        if (count == 0) {
            break;
        }
        size += static_cast<std::size_t>(count);
    }
    text.resize(size);
    return text;
}

} // namespace

bool isThere(const char *file)
{
    return access(file, F_OK) == 0;
}

std::optional<std::string> textOfFile(const std::filesystem::path &file, std::size_t most)
{
    const auto descriptor = openedFile(file);
    return descriptor.isOpen() ? readAll(descriptor.get(), most) : std::nullopt;
}

std::optional<double> numberInFile(const std::filesystem::path &file)
{
    const auto text = textOfFile(file);
    return text ? numberInText(*text) : std::nullopt;
}

std::vector<std::filesystem::path> numberedPaths(const std::filesystem::path &folder, std::string_view prefix)
{
    std::vector<unsigned> numbers;
    const Folder open(opendir(folder.c_str()));
    while (const auto *const entry = open && numbers.size() < mostPaths ? readdir(open.get()) : nullptr) {
        if (const auto number = numberBehind(prefix, entry->d_name)) {
            numbers.push_back(*number);
        }
    }
    std::ranges::sort(numbers);
    std::vector<std::filesystem::path> paths;
    paths.reserve(numbers.size());
    for (const auto number : numbers) {
        paths.emplace_back(folder.native() + '/' + std::string(prefix) + std::to_string(number));
    }
    return paths;
}

} // namespace platform
