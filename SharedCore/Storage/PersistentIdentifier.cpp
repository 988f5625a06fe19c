#include "SharedCore/Storage/PersistentIdentifier.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdint>
#include <random>

namespace sharedcore {

namespace {

// Microseconds of the time of day, each given once.
std::uint64_t nextMoment()
{
    static std::atomic<std::uint64_t> last{0};
    const auto sinceEpoch = std::chrono::system_clock::now().time_since_epoch();
    const auto now =
        static_cast<std::uint64_t>(std::chrono::duration_cast<std::chrono::microseconds>(sinceEpoch).count());
    auto previous = last.load();
    while (!last.compare_exchange_weak(previous, std::max(now, previous + 1))) {
    }
    return std::max(now, previous + 1);
}

std::uint64_t randomBits()
{
    std::random_device device;
    return std::uniform_int_distribution<std::uint64_t>()(device);
}

// What no other process has.
std::uint64_t processBits()
{
    static const auto bits = randomBits();
    return bits;
}

void write(std::uint64_t number, std::uint8_t *bytes)
{
    constexpr int byteCount = 8;
    for (int i = 0; i < byteCount; ++i) {
        bytes[i] = static_cast<std::uint8_t>(number >> (8 * (byteCount - 1 - i)));
    }
}

} // namespace

PersistentIdentifier PersistentIdentifier::make(std::string_view entityName)
{
    platform::ObjectKey key;
    write(nextMoment(), key.bytes.data());
    write(processBits(), key.bytes.data() + sizeof(std::uint64_t));
    return {entityName, key};
}

} // namespace sharedcore

std::size_t std::hash<sharedcore::PersistentIdentifier>::operator()(
    const sharedcore::PersistentIdentifier &identifier) const noexcept
{
    const auto &bytes = identifier.key.bytes;
    const std::string_view text(reinterpret_cast<const char *>(bytes.data()), bytes.size()); // NOLINT
    return std::hash<std::string_view>()(text);
}
