// A new folder that is removed in the end: in STIRRA_TEST_FOLDER, where that is set, or in memory, where a
// slow disk does not make writers wait for one another, or where temporary files go.
#pragma once

#include <stdlib.h>
#include <unistd.h>

#include <filesystem>
#include <string>

namespace testsupport {

class TemporaryFolder
{
public:
    TemporaryFolder()
    {
        std::string name = (place() / "stirra-XXXXXX").string();
        path_ = mkdtemp(name.data());
    }
    TemporaryFolder(const TemporaryFolder &) = delete;
    TemporaryFolder &operator=(const TemporaryFolder &) = delete;
    ~TemporaryFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }

    [[nodiscard]] const std::filesystem::path &path() const { return path_; }

private:
    static std::filesystem::path place()
    {
        const std::filesystem::path memory = "/dev/shm";
        if (const char *wanted = getenv("STIRRA_TEST_FOLDER")) {
            return wanted;
        }
        return access(memory.c_str(), W_OK) == 0 ? memory : std::filesystem::temp_directory_path();
    }

    std::filesystem::path path_;
};

} // namespace testsupport
