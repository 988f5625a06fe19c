#include "Tests/Platform/Secrets/ProcessMemory.h"

#include <algorithm>
#include <cstdint>
#include <fstream>
#include <sstream>
#include <vector>

namespace platform {

namespace {

constexpr char mask = 0x5A;
constexpr std::uintptr_t largestRegion = 1U << 30U; // what is larger belongs to a sanitizer

struct Region
{
    std::uintptr_t begin;
    std::uintptr_t end;
};

std::vector<Region> writableRegions()
{
    std::vector<Region> regions;
    std::ifstream maps("/proc/self/maps");
    for (std::string line; std::getline(maps, line);) {
        Region region{};
        char dash = 0;
        std::string permissions;
        std::istringstream(line) >> std::hex >> region.begin >> dash >> region.end >> permissions;
        if (permissions.starts_with("rw") && region.end - region.begin < largestRegion) {
            regions.push_back(region);
        }
    }
    return regions;
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

__attribute__((no_sanitize("address"))) // which forbids to look at freed memory
bool MaskedText::isAt(const volatile char *memory) const
{
    const char *masked = masked_.data();
    for (std::size_t index = 0; index < masked_.size(); ++index) {
        if ((memory[index] ^ mask) != masked[index]) {
            return false;
        }
    }
    return true;
}

int countInMemory(const MaskedText &text)
{
    int count = 0;
    for (const auto &region : writableRegions()) {
        for (auto address = region.begin; address + text.size() <= region.end; ++address) {
            count += text.isAt(reinterpret_cast<const volatile char *>(address)) ? 1 : 0; // NOLINT
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
