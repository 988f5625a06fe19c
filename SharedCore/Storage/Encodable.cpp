#include "SharedCore/Storage/Encodable.h"

namespace sharedcore {

bool Decodable::decodeStored(const std::shared_ptr<const platform::PropertyValue> &stored)
{
    const auto *bytes = stored ? std::get_if<platform::Data>(stored.get()) : nullptr;
    return bytes && decodeRecord(*bytes, *this);
}

std::optional<platform::Data> encodedRecord(const Encodable &value)
{
    return jsonText([&value](Json &json) { return value.encode(json); });
}

bool decodeRecord(std::span<const std::byte> bytes, Decodable &into)
{
    return readJsonText(bytes, [&into](const Json &json) { return into.decode(json); });
}

} // namespace sharedcore
