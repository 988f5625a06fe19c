#include "Tests/Platform/Secrets/ProcessMemory.h"

#include "Platform/Linux/FileDescriptor.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <fstream>
#include <span>
#include <sstream>
#include <stdexcept>
#include <vector>

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

namespace platform {

namespace {

constexpr char mask = 0x5A;
constexpr std::uintptr_t largestRegion = 1U << 30U; // what is larger belongs to a sanitizer
constexpr std::size_t blockSize = 1U << 20U;

struct Region
{
    std::uintptr_t begin;
    std::uintptr_t end;
};

std::vector<Region> privateRegions()
{
    std::vector<Region> regions;
    std::ifstream maps("/proc/self/maps");
    for (std::string line; std::getline(maps, line);) {
        Region region{};
        char dash = 0;
        std::string permissions;
        std::istringstream(line) >> std::hex >> region.begin >> dash >> region.end >> permissions;
        if (permissions == "rw-p" && region.end - region.begin < largestRegion) {
            regions.push_back(region);
        }
    }
    return regions;
}

// What the search itself holds lies where it does not search.
class SharedMemory
{
public:
    explicit SharedMemory(std::size_t size)
        : size_(size)
        , memory_(mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0))
    {
        if (memory_ == MAP_FAILED) {
            throw std::runtime_error("no memory to search with");
        }
    }
    SharedMemory(const SharedMemory &) = delete;
    SharedMemory &operator=(const SharedMemory &) = delete;
    ~SharedMemory() { munmap(memory_, size_); }

    [[nodiscard]] std::span<char> span() const { return {static_cast<char *>(memory_), size_}; }

private:
    std::size_t size_;
    void *memory_;
};

int countIn(std::span<const char> memory, std::span<const char> pattern)
{
    int count = 0;
    const char *found = memory.data();
    const char *const end = found + memory.size();
    while ((found = static_cast<const char *>(
                memmem(found, static_cast<std::size_t>(end - found), pattern.data(), pattern.size())))) {
        ++count;
        ++found;
    }
    return count;
}

} // namespace

MaskedText::MaskedText(std::string_view first, std::string_view second)
{
    for (const auto part : {first, second}) {
        std::ranges::transform(part, std::back_inserter(masked_),
                               [](char letter) { return static_cast<char>(letter ^ mask); });
    }
}

std::string MaskedText::plain() const
{
    std::string text;
    text.reserve(masked_.size()); // growing would leave copies behind
    std::ranges::transform(masked_, std::back_inserter(text),
                           [](char letter) { return static_cast<char>(letter ^ mask); });
    return text;
}

void MaskedText::writePlain(char *memory) const
{
    std::ranges::transform(masked_, memory, [](char letter) { return static_cast<char>(letter ^ mask); });
}

// Through the kernel, as memory that another thread gives back meanwhile is an error there and no fault.
int countInMemory(const MaskedText &text)
{
    const SharedMemory pattern(text.size());
    text.writePlain(pattern.span().data());
    const SharedMemory block(blockSize);
    const FileDescriptor memory(open("/proc/self/mem", O_RDONLY | O_CLOEXEC)); // NOLINT
    int count = 0;
    for (const auto &region : privateRegions()) {
        const auto step = blockSize - text.size() + 1; // what lies across two blocks is found in the first
        for (auto address = region.begin; address < region.end; address += step) {
            const auto wanted = std::min<std::size_t>(blockSize, region.end - address);
            const auto length = pread(memory.get(), block.span().data(), wanted, static_cast<off_t>(address));
            count += length > 0
                         ? countIn(block.span().first(static_cast<std::size_t>(length)), pattern.span())
                         : 0;
        }
    }
    return count;
}

void clear(std::string &text)
{
    volatile char *letters = text.data();
    for (std::size_t index = 0; index < text.size(); ++index) {
        letters[index] = 0;
    }
}

} // namespace platform
