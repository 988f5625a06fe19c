#include "Platform/Linux/Sysfs/SysfsFile.h"

#include "Platform/Linux/FileDescriptor.h"
#include "Platform/Linux/Sysfs/SysfsText.h"

#include <fcntl.h>

#include <algorithm>
#include <charconv>
#include <system_error>
#include <utility>

namespace platform {

namespace {

constexpr std::size_t mostPaths = 1000;

FileDescriptor openedFile(const std::filesystem::path &file)
{
    return FileDescriptor(open(file.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
}

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

bool isThere(const std::filesystem::path &file)
{
    return access(file.c_str(), F_OK) == 0;
}

bool isReadable(const std::filesystem::path &file)
{
    return openedFile(file).isOpen();
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
    std::vector<std::pair<unsigned, std::filesystem::path>> found;
    std::error_code error;
    for (std::filesystem::directory_iterator entry(folder, error), end;
         !error && entry != end && found.size() < mostPaths; entry.increment(error)) {
        if (const auto number = numberBehind(prefix, entry->path().filename().native())) {
            found.emplace_back(*number, entry->path());
        }
    }
    std::ranges::sort(found);
    std::vector<std::filesystem::path> paths;
    paths.reserve(found.size());
    for (auto &[number, path] : found) {
        paths.push_back(std::move(path));
    }
    return paths;
}

} // namespace platform
