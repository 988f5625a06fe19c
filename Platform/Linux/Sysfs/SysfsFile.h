// The kernel's attributes as files. Any thread. A pipe or a device that a path may lead to is not waited for;
// an attribute is, for as long as its driver takes to answer: mostly microseconds, but a sensor hub may have
// to wake a sensor first, which takes some tenths of a second, and the kernel gives it up to 5 s.
#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

// The longest attribute there is: a page.
inline constexpr std::size_t longestAttribute = 4096;

[[nodiscard]] bool isThere(const char *file);

// What the file says, of which at most `most` bytes are read. Nothing where it cannot be read.
[[nodiscard]] std::optional<std::string> textOfFile(const std::filesystem::path &file,
                                                    std::size_t most = longestAttribute);

// The number that the file says; nothing where it cannot be read, or says something else.
[[nodiscard]] std::optional<double> numberInFile(const std::filesystem::path &file);

// The paths in the folder whose names are `prefix` and a number, in the order of the numbers. At most 1000.
[[nodiscard]] std::vector<std::filesystem::path> numberedPaths(const std::filesystem::path &folder,
                                                               std::string_view prefix);

} // namespace platform
