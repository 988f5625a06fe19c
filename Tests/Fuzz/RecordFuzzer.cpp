// Records from any bytes. What is decoded is encoded again to a text that stands for the same.

#include "SharedCore/Storage/AppPreferences.h"
#include "SharedCore/Storage/UsageStats.h"

#include <cstdint>
#include <cstdlib>

namespace {

using namespace sharedcore;

// With what the records of the family do not have.
struct EveryKind
{
    bool isTrue = false;
    std::uint8_t byte = 0;
    double number = 0;
    std::string text;
    foundation::Date date;
    AppPreferences::Theme theme{};
    std::optional<std::vector<std::optional<std::string>>> list;
    std::map<std::string, UsageStats> records;

    static constexpr auto fields()
    {
        return std::tuple{Field{"isTrue", &EveryKind::isTrue}, Field{"byte", &EveryKind::byte},
                          Field{"number", &EveryKind::number}, Field{"text", &EveryKind::text},
                          Field{"date", &EveryKind::date},     Field{"theme", &EveryKind::theme},
                          Field{"list", &EveryKind::list},     Field{"records", &EveryKind::records}};
    }
};

void require(bool isTrue)
{
    if (!isTrue) {
        std::abort();
    }
}

template <class Record> void tryAs(std::span<const std::byte> bytes)
{
    DecodableValue<Record> decoded;
    if (!decodeRecord(bytes, decoded)) {
        return;
    }
    const auto encoded = encodedRecord(EncodableReference<Record>(decoded.value));
    require(encoded.has_value());
    DecodableValue<Record> again;
    require(decodeRecord(*encoded, again));
    require(encodedRecord(EncodableReference<Record>(again.value)) == encoded);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const auto bytes = std::as_bytes(std::span(data, size));
    tryAs<AppPreferences>(bytes);
    tryAs<UsageStats>(bytes);
    tryAs<EveryKind>(bytes);
    return 0;
}
