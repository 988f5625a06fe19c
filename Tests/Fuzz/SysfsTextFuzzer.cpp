// Attributes of the kernel from any bytes. What is read is finite, and so is what becomes of it.

#include "Platform/Linux/Sysfs/LightScale.h"
#include "Platform/Linux/Sysfs/SysfsText.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdlib>

namespace {

using namespace platform;

void require(bool isTrue)
{
    if (!isTrue) {
        std::abort();
    }
}

template <std::size_t count> void checkTuple(std::string_view text)
{
    std::array<double, count> numbers{};
    if (numbersInText(text, numbers)) {
        require(std::ranges::all_of(numbers, [](double number) { return std::isfinite(number); }));
        require(trimmedText(text).starts_with('('));
    }
}

void checkLight(double value)
{
    const auto light = lightOfLux(value);
    require(light <= brightestLight && lightOfByte(value) <= brightestLight);
    require(light == 0 || light == brightestLight || luxOfLight(light) >= value);
    require(light == 0 || luxOfLight(light - 1) < value);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const std::string_view text(reinterpret_cast<const char *>(data), size);
    const auto trimmed = trimmedText(text);
    require(trimmedText(trimmed) == trimmed);
    checkTuple<2>(text);
    checkTuple<3>(text);
    if (const auto number = numberInText(text)) {
        require(std::isfinite(*number));
        checkLight(*number);
    }
    return 0;
}
